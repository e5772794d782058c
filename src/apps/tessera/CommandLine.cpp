// SPDX-License-Identifier: MIT
#include <apps/tessera/CommandLine.h>

#include <cstdio>
#include <memory>

namespace tessera::apps {
namespace {

const QString HelpOption = QStringLiteral("help");

}  // namespace

const char FilesHelp[] =
    "A file with a defect is shown as far as it can be read, with a warning on standard error.\n"
    "Exit status: 0 when something could be read of every file, 1 when not (each such file\n"
    "gets a line on standard error), 2 for arguments that cannot be followed.";

void SetUpParser(QCommandLineParser &parser, const QString &description, const QString &syntax) {
  parser.setApplicationDescription(description + u'\n' + QString::fromLatin1(FilesHelp));
  parser.addOption(QCommandLineOption({QStringLiteral("h"), HelpOption}, QStringLiteral("Shows this help.")));
  parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Map files, the bottom layer first."), syntax);
}

bool Parse(QCommandLineParser &parser, const QStringList &arguments) {
  if (!parser.parse(arguments)) throw EUsageError(parser.errorText());
  if (!parser.isSet(HelpOption)) return true;
  Print(parser.helpText());
  return false;
}

QStringList FilesOf(const QCommandLineParser &parser) {
  QStringList files = parser.positionalArguments().mid(1);
  if (files.isEmpty()) throw EUsageError(QStringLiteral("no file is named"));
  return files;
}

TTessera &CommandMap() {
  static TTessera *const map = std::make_unique<TTessera>().release();
  return *map;
}

void Print(const QString &text) {
  std::fputs(text.toUtf8().constData(), stdout);
}

void PrintComplaint(const QString &words) {
  std::fprintf(stderr, "tessera: %s\n", words.toUtf8().constData());
}

void PrintComplaints(const TLoadedFile &file) {
  if (!file.error.isEmpty()) PrintComplaint(file.error);
  for (const QString &warning : file.warnings) PrintComplaint(QStringLiteral("warning: ") + warning);
}

}  // namespace tessera::apps
