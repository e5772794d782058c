// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <cstddef>
#include <new>

namespace tessera {

/// Root of everything that can be the subject of a map event: layers, the layer collection, map objects.
///
/// What `delete` or an owning pointer destroys is told so while it is still whole, by BeforeDestruction; what stands on
/// the stack or within something else is not. THandle tells whether a TObject is still there.
class TESSERA_CORE_EXPORT TObject {
 public:
  TObject() = default;
  TObject(const TObject &) = delete;
  TObject &operator=(const TObject &) = delete;
  /// Empties the handles of the object.
  virtual ~TObject();

  /// The place to tell others of the end. What it throws ends in the message sink, and the object is destroyed all the
  /// same.
  virtual void BeforeDestruction() {}

  static void *operator new(std::size_t size) { return ::operator new(size); }
  static void *operator new(std::size_t /*size*/, void *place) noexcept { return place; }
  /// For an object whose constructor has thrown.
  static void operator delete(void *memory) { ::operator delete(memory); }
  static void operator delete(TObject *object, std::destroying_delete_t);

 protected:
  /// What `delete` does but for the memory, which it answers.
  [[nodiscard]] static void *End(TObject *object);
};

}  // namespace tessera
