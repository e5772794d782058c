// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/THandle.h>
#include <tessera/layers/TMapLayer.h>

#include <QByteArray>

#include <vector>

namespace tessera::soak {

class Person;

/// What must hold however the editor was worked with. What does not is a failure of the person's work.
class Checks {
 public:
  explicit Checks(Person &person) : m_person(person) { Begin(); }

  /// From now on undoing leads back to here.
  void Begin();
  /// To be called after each deed: steps may have gone for good.
  void Follow();
  /// Looks at all of it; what holds from one call to the next begins anew.
  void Run();

 private:
  struct Look {
    THandle<TMapLayer> layer;
    QByteArray bytes;
  };
  void CheckSelection();
  void CheckPictures();
  void CheckUndo();
  [[nodiscard]] std::vector<Look> LookAtLayers() const;
  void Compare(const std::vector<Look> &looks, const QString &when);

  Person &m_person;
  bool m_isStanding = false;  // whether the steps since the beginning are all there
  double m_angleDeg = 0;      // of the map's rotation, which turns what all objects hold
  TMapPoint m_center;
  std::vector<Look> m_looks;
};

/// What is taken of the heap, and of memory at all, in bytes.
[[nodiscard]] std::size_t HeapInUse();
[[nodiscard]] std::size_t ResidentSet();

}  // namespace tessera::soak
