// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataFields.h>
#include <tessera/graphics/TFont.h>
#include <tessera/objects/TMapDataLinkEvent.h>
#include <tessera/objects/TMapMember.h>

namespace tessera {

class TCustomMapObject;

/// A layer as its objects see it.
class TESSERA_CORE_EXPORT TObjectLayer : public TFieldsOwner, public TMapMember {
 public:
  /// Whether objects are labelled with one of their fields, which, and how.
  [[nodiscard]] virtual bool GetAutoLabel() const = 0;
  [[nodiscard]] virtual int GetLabelFieldIndex() const = 0;
  [[nodiscard]] virtual int GetFieldCount() const = 0;
  [[nodiscard]] virtual const TFont &GetAutoLabelFont() const = 0;
  /// Takes an object that is being destroyed out of the layer's list.
  virtual void ForgetObject(TCustomMapObject &object) = 0;
  /// An object whose extent the layer had taken note of has changed its vertices or bounds.
  virtual void NoteGeometry(TCustomMapObject &object) = 0;
  /// Something else of an object has changed, as `event` says.
  virtual void NoteChange(TCustomMapObject &object, TMapDataLinkEvent event) = 0;
  /// Whether changes of objects need not be noted, as while the layer is loaded.
  [[nodiscard]] bool IsQuiet() const { return m_isQuiet; }

 protected:
  void SetQuiet(bool isQuiet) { m_isQuiet = isQuiet; }

 private:
  bool m_isQuiet = false;
};

}  // namespace tessera
