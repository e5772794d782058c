// SPDX-License-Identifier: MIT
#include <tessera/base/detail/AsideRun.h>
#include <tessera/formats/detail/MitabEntries.h>
#include <tessera/formats/detail/MitabLibrary.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <clocale>
#ifdef Q_OS_UNIX
#include <dlfcn.h>
#endif

namespace tessera::detail {
namespace {

/// The folder that this library was loaded from.
QString OwnFolder() {
#ifdef Q_OS_UNIX
  Dl_info info;
  if (dladdr(reinterpret_cast<const void *>(&OwnFolder), &info) != 0) {
    return QFileInfo(QFileInfo(QFile::decodeName(info.dli_fname)).canonicalFilePath()).path();
  }
#endif
  return QCoreApplication::applicationDirPath();
}

QString OwnLibrary() {
#ifdef Q_OS_WIN
  return OwnFolder() + QStringLiteral("/tessera/tessera-mitab.dll");
#else
  return OwnFolder() + QStringLiteral("/tessera/libtessera-mitab.so");
#endif
}

std::recursive_timed_mutex &TurnsMutex() {
  static std::recursive_timed_mutex mutex;
  return mutex;
}

}  // namespace

MitabTurn::MitabTurn() : m_lock(TurnsMutex(), std::defer_lock) {
  // Whoever has the turn may be waiting for this thread to end.
  constexpr std::chrono::milliseconds Patience(20);
  const AsideRun *run = AsideRun::Current();
  while (!m_lock.try_lock_for(Patience)) {
    if (run) run->CheckGoingOn();
  }
}

bool EnsureMitab() {
  const MitabTurn turn;
  if (MITAB_LibOK() || LibPath != UsualMitabPath()) return MITAB_LibOK();
  const QString own = OwnLibrary();
  if (!QFileInfo::exists(own)) return false;
  LibPath = own;
  MITAB_load();
  return MITAB_LibOK();
}

constexpr const char *SetCharsetEntry = "tessera_mitab_set_charset";

bool MitabRecodes() {
  return FindMitabEntry(SetCharsetEntry) != nullptr;
}

bool MitabKnowsTextWidths() {
  return !MitabRecodes();  // the one that goes beyond the interface falls short here
}

bool SetMitabCharset(mitab_handle file, const QByteArray &charset) {
  using SetCharset = int (*)(mitab_handle, const char *);
  const auto set = reinterpret_cast<SetCharset>(FindMitabEntry(SetCharsetEntry));
  return set != nullptr && set(file, charset.constData()) == 0;
}

void ClearMitabError() {
  if (const QFunctionPointer reset = FindMitabEntry("CPLErrorReset")) reset();
}

#ifdef Q_OS_UNIX
MitabNumbers::MitabNumbers() {
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  m_before = uselocale(plain);
}

MitabNumbers::~MitabNumbers() {
  uselocale(static_cast<locale_t>(m_before));
}
#else
MitabNumbers::MitabNumbers() : m_before(nullptr) {}
MitabNumbers::~MitabNumbers() = default;
#endif

void MitabCloser::operator()(mitab_handle file) const {
  const MitabNumbers numbers;
  mitab_c_close(file);
}

void MitabDestroyer::operator()(mitab_feature feature) const {
  mitab_c_destroy_feature(feature);
}

MitabFile OpenMitabFile(const QString &fileName) {
  const MitabNumbers numbers;
  return MitabFile(mitab_c_open(QFile::encodeName(fileName).constData()));
}

}  // namespace tessera::detail
