// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>

namespace tessera::test {

/// Puts a locale in force until the end of the scope.
class TLocaleGuard {
 public:
  explicit TLocaleGuard(const QLocale &locale) { QLocale::setDefault(locale); }
  ~TLocaleGuard() { QLocale::setDefault(m_before); }
  TLocaleGuard(const TLocaleGuard &) = delete;
  TLocaleGuard &operator=(const TLocaleGuard &) = delete;

 private:
  QLocale m_before;
};

inline QLocale Russian() {
  return {QLocale::Russian, QLocale::Russia};
}

}  // namespace tessera::test
