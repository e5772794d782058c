// SPDX-License-Identifier: MIT
#include <apps/common/TMapInfoFiles.h>
#include <apps/tessera/CommandLine.h>
#include <apps/tessera/ConvertCommand.h>
#include <apps/tessera/TerminalProgress.h>

namespace tessera::apps {
namespace {

const QString CharsetOption = QStringLiteral("charset");
const QString AllowLossOption = QStringLiteral("allow-loss");

constexpr char Description[] =
    "Writes a map file in another format: .mif or .tab, as the name of the target ends.\n"
    "What does not come over is told on standard error, a line for each sort of thing.\n"
    "Exit status: 0 when all came over, 1 when the target was not written, 2 for arguments that\n"
    "cannot be followed, 3 when the target was written and something was lost.";

/// Sets up the provider that reads and writes: all of the file is to come over.
void SetUpProvider(const QString &target, const QString &charset) {
  auto *provider = qobject_cast<TMapInfoFiles *>(FormatProviders->FindSuitableProvider(target));
  if (provider == nullptr) throw EUsageError(QStringLiteral("files named as '%1' cannot be written").arg(target));
  if (!charset.isEmpty() && !TMapInfoFormatProvider::IsCharset(charset)) {
    throw EUsageError(QStringLiteral("there is no character set '%1'").arg(charset));
  }
  provider->SetCharset(charset);
  provider->SetTakesFastWay(false);
}

/// Prints what was lost, and answers whether there was anything.
bool PrintLosses(const QString &fileName, const QString &when, const QStringList &losses) {
  for (const QString &words : losses)
    PrintComplaint(fileName + QStringLiteral(": lost when ") + when + QStringLiteral(": ") + words);
  return !losses.isEmpty();
}

}  // namespace

int RunConvert(const QStringList &arguments) {
  QCommandLineParser parser;
  SetUpParser(parser, {}, {});
  parser.setApplicationDescription(QString::fromLatin1(Description));
  parser.clearPositionalArguments();
  parser.addPositionalArgument(QStringLiteral("IN"), QStringLiteral("The map file to read."),
                               QStringLiteral("convert IN"));
  parser.addPositionalArgument(QStringLiteral("OUT"), QStringLiteral("The map file to write."));
  parser.addOption({CharsetOption,
                    QStringLiteral("The target's character set, such as WindowsLatin1 (default: that of IN)."),
                    QStringLiteral("NAME")});
  parser.addOption({AllowLossOption, QStringLiteral("Answers 0 also when something was lost.")});
  if (!Parse(parser, arguments)) return esDone;
  const QStringList files = FilesOf(parser);
  if (files.size() != 2) throw EUsageError(QStringLiteral("a file to read and one to write are to be named"));
  SetUpProvider(files[1], parser.value(CharsetOption));

  TTessera &map = CommandMap();
  const TerminalProgress progress(map);
  const TLoadedFile loaded = LoadMapFile(*map.GetLayers(), files[0]);
  if (loaded.layer == nullptr) {
    PrintComplaints(loaded);
    return esFailed;
  }
  bool isLossy = PrintLosses(files[0], QStringLiteral("read"), loaded.report.AllLosses());
  const TSavedFile saved = SaveMapFile(*loaded.layer, files[1]);
  if (!saved.error.isEmpty()) {
    PrintComplaint(saved.error);
    return esFailed;
  }
  isLossy |= PrintLosses(files[1], QStringLiteral("written"), saved.report.losses);
  return isLossy && !parser.isSet(AllowLossOption) ? esLossy : esDone;
}

}  // namespace tessera::apps
