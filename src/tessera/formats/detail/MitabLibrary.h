// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/mitab_dyn.h>

#include <QString>

#include <memory>
#include <mutex>

namespace tessera::detail {

/// Makes sure that a MITAB library is bound: as long as LibPath is the usual one and names no library, the one that is
/// installed with this library is loaded. Whether there is one.
[[nodiscard]] TESSERA_CORE_EXPORT bool EnsureMitab();

/// Whether the library takes and gives texts in UTF-8, whatever a file's character set is, and can be told the one of a
/// new file. Others leave the bytes as they stand.
[[nodiscard]] bool MitabRecodes();
/// Whether the library tells and takes the widths of the boxes of texts.
[[nodiscard]] bool MitabKnowsTextWidths();
/// Chooses the character set of a new file, by MapInfo's name. False when the library cannot write it.
[[nodiscard]] bool SetMitabCharset(mitab_handle file, const QByteArray &charset);
/// Forgets an error that the library has noted, which would make it refuse to write objects that are sound.
void ClearMitabError();

/// The turn of this thread to use the library, which keeps errors, and may keep more, for all of a process. Waits for
/// that of another; one that is asked for within another of the same thread is given at once.
class MitabTurn {
 public:
  /// @throws EInOutError when this thread is in a run that is cancelled meanwhile
  MitabTurn();

 private:
  std::unique_lock<std::recursive_timed_mutex> m_lock;
};

/// Numbers have a decimal point while it lives, in this thread, as the library expects. No event must be sent
/// meanwhile.
class MitabNumbers {
 public:
  MitabNumbers();
  ~MitabNumbers();
  MitabNumbers(const MitabNumbers &) = delete;
  MitabNumbers &operator=(const MitabNumbers &) = delete;

 private:
  void *m_before;
};

struct MitabCloser {
  void operator()(mitab_handle file) const;
};
/// A file that is closed, and so completed, at the end.
using MitabFile = std::unique_ptr<void, MitabCloser>;

struct MitabDestroyer {
  void operator()(mitab_feature feature) const;
};
using MitabFeature = std::unique_ptr<void, MitabDestroyer>;

/// None when the library cannot open it.
[[nodiscard]] MitabFile OpenMitabFile(const QString &fileName);

}  // namespace tessera::detail
