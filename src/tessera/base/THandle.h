// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TObject.h>

namespace tessera {

/// What THandle is made of: a reference to a TObject that becomes empty when the object is destroyed.
///
/// Handles and what they refer to belong to one thread. Making one and letting it go costs about as much as a pointer,
/// and an object costs nothing for being able to have handles.
class TESSERA_CORE_EXPORT TObjectHandle {
 public:
  TObjectHandle() = default;
  explicit TObjectHandle(TObject *object) { Refer(object); }
  TObjectHandle(const TObjectHandle &other) : TObjectHandle(other.m_object) {}
  TObjectHandle &operator=(const TObjectHandle &other);
  ~TObjectHandle() { Unlink(); }

  /// None when the object is gone.
  [[nodiscard]] TObject *GetObject() const { return m_object; }

 private:
  friend class TObject;
  /// Empties all handles of an object that is being destroyed.
  static void Empty(const TObject *object);
  void Refer(TObject *object);
  void Unlink();

  // The handles of objects whose addresses are alike form a chain.
  TObject *m_object = nullptr;
  TObjectHandle *m_next = nullptr;
  TObjectHandle **m_link = nullptr;
};

/// A reference to an object, a layer or another TObject that becomes empty when that is destroyed. It keeps referring
/// to the same one however lists are reordered, and when it is taken out of one and put into another. Made on the
/// stack, it tells after a call of foreign code whether the object is still there.
template <class Kind>
class THandle {
 public:
  THandle() = default;
  explicit THandle(Kind *object) : m_handle(object) {}

  /// None when the object is gone.
  [[nodiscard]] Kind *Get() const { return static_cast<Kind *>(m_handle.GetObject()); }
  /// @pre the object is there
  [[nodiscard]] Kind *operator->() const { return Get(); }
  [[nodiscard]] explicit operator bool() const { return m_handle.GetObject() != nullptr; }

 private:
  TObjectHandle m_handle;
};

}  // namespace tessera
