// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/formats/detail/WorkspaceText.h>

#include <cstdint>
#include <cstdlib>

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

/// What a map asks a workspace for may throw for numbers that are none, and nothing else.
template <class Question>
void Ask(const Question &question) {
  try {
    static_cast<void>(question());
  } catch (const tessera::EConvertError &) {
  }
}

void AskForLayer(const tessera::detail::WorkspaceText &workspace, int number) {
  Ask([&] { return workspace.DisplayOf(number); });
  Ask([&] { return workspace.IsAutoLabelled(number); });
  Ask([&] { return workspace.BrushOf(number); });
  Ask([&] { return workspace.PenOf(number); });
  Ask([&] { return workspace.FontOf(number); });
}

}  // namespace

/// A workspace file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
  const tessera::detail::WorkspaceText workspace(bytes);
  const auto count = workspace.Tables().size();
  // A table takes more than a letter.
  Require(count <= size);
  Ask([&] { return workspace.EditableLayer(); });
  Ask([&] { return workspace.Center(); });
  constexpr int MostLayers = 20;
  for (int number = 0; number <= qMin(int(count), MostLayers); ++number) AskForLayer(workspace, number);
  tessera::TWorkspaceReport report;
  workspace.ListStatements(report);
  Require(report.honoured.size() + report.skipped.size() <= std::size_t(bytes.count('\n')) + 1);
  return 0;
}
