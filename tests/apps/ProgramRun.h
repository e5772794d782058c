// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <algorithm>
#include <string>

namespace tessera::test {

/// What a run of the program `tessera` came to.
struct TProgramRun {
  int status = -1;  ///< -1 when it did not end by itself.
  std::string out;
  std::string err;

  [[nodiscard]] bool Complains(std::string_view words) const { return err.find(words) != std::string::npos; }
  [[nodiscard]] auto CountOfErrorLines() const { return std::count(err.begin(), err.end(), '\n'); }
};

/// Runs `tessera` in an environment whose locale is `locale`.
[[nodiscard]] TProgramRun RunTessera(const QStringList &arguments, const char *locale = "C.UTF-8");

/// The words between the blanks of a text.
[[nodiscard]] QStringList Words(const char *text);

/// The path of a map file among the test data.
[[nodiscard]] QString MapFileNamed(const char *name);

}  // namespace tessera::test
