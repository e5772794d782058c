// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/MapFiles.h>
#include <tessera/map/TTessera.h>

#include <QCommandLineParser>

#include <stdexcept>

namespace tessera::apps {

enum TExitStatus { esDone = 0, esFailed = 1, esWrongUsage = 2, esLossy = 3 };

/// Arguments that cannot be followed; the text says which and why.
class EUsageError : public std::runtime_error {
 public:
  explicit EUsageError(const QString &message) : std::runtime_error(message.toStdString()) {}
};

/// What the help of the commands that only read ends with.
extern const char FilesHelp[];

/// The parser of a command with an option for its help. `syntax` is what follows the options: "info FILE…".
void SetUpParser(QCommandLineParser &parser, const QString &description, const QString &syntax);
/// Reads the arguments, of which the first is the program and the second the command. False after printing the help
/// that they ask for. @throws EUsageError
[[nodiscard]] bool Parse(QCommandLineParser &parser, const QStringList &arguments);
/// The files named behind the command. @throws EUsageError without any.
[[nodiscard]] QStringList FilesOf(const QCommandLineParser &parser);

/// The map that the commands work on. It is never taken apart, since the process ends with the command and the system
/// gives back the memory of a million objects at once.
[[nodiscard]] TTessera &CommandMap();

/// Writes a text to standard output as it stands.
void Print(const QString &text);
/// Writes a line to standard error, with the program's name in front.
void PrintComplaint(const QString &words);
/// Prints the error or the warnings of a file.
void PrintComplaints(const TLoadedFile &file);

}  // namespace tessera::apps
