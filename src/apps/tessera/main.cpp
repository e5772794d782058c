// SPDX-License-Identifier: MIT
#include <apps/common/ProgramSetup.h>
#include <apps/tessera/CommandLine.h>
#include <apps/tessera/ConvertCommand.h>
#include <apps/tessera/InfoCommand.h>
#include <apps/tessera/RenderCommand.h>
#include <tessera/base/Exceptions.h>

#include <QApplication>

#include <array>
#include <cstdio>

namespace tessera::apps {
namespace {

struct TCommand {
  const char *name;
  int (*run)(const QStringList &arguments);
};

constexpr std::array Commands{TCommand{"info", RunInfo}, TCommand{"render", RunRender},
                              TCommand{"convert", RunConvert}};

constexpr char Help[] =
    "Usage: tessera COMMAND [options] FILE…\n"
    "Reads vector maps without a window.\n"
    "\n"
    "  tessera info FILE… [--json]\n"
    "      tells what map files hold: objects, fields, bounds, defects\n"
    "  tessera render FILE… --out PICTURE [--size WxH] [--center X,Y] [--zoom Z | --fit] [--scale-bar] [--legend]\n"
    "                 [--timings[=N]]\n"
    "      draws map files to a picture, the first at the bottom\n"
    "  tessera convert IN OUT [--charset NAME] [--allow-loss]\n"
    "      writes a map file in another format, and tells what got lost\n"
    "  tessera COMMAND --help\n"
    "      tells more about a command\n"
    "  tessera --version\n"
    "\n";

int Run(const QStringList &arguments) {
  const QString first = arguments.value(1);
  if (first == QStringLiteral("--help") || first == QStringLiteral("-h")) {
    Print(QString::fromUtf8(Help) + QString::fromLatin1(FilesHelp) + u'\n');
    return esDone;
  }
  if (first == QStringLiteral("--version") || first == QStringLiteral("-v")) {
    Print(QStringLiteral("tessera " TESSERA_VERSION "\n"));
    return esDone;
  }
  for (const TCommand &command : Commands) {
    if (first == QLatin1String(command.name)) return command.run(arguments);
  }
  throw EUsageError(first.isEmpty() ? QStringLiteral("no command is given")
                                    : QStringLiteral("there is no command '%1'").arg(first));
}

/// Lets only what is serious of Qt's remarks through. The others are about the surroundings of a desktop, which mean
/// nothing here.
void ShowSerious(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text) {
  if (type == QtCriticalMsg || type == QtFatalMsg) PrintComplaint(text);
}

/// Runs the command; whatever goes wrong ends as one line on standard error.
int RunGuarded(const QStringList &arguments) {
  try {
    const int status = Run(arguments);
    if (std::fflush(stdout) == 0) return status;
    PrintComplaint(QStringLiteral("standard output cannot be written"));
    return esFailed;
  } catch (const EUsageError &error) {
    PrintComplaint(MessageOf(error) + QStringLiteral(" (see tessera --help)"));
    return esWrongUsage;
  } catch (const std::exception &error) {
    PrintComplaint(MessageOf(error));
    return esFailed;
  }
}

}  // namespace
}  // namespace tessera::apps

int main(int argc, char **argv) {
  // No display is needed, whatever the system's locale Qt has nothing to say about it, and nobody waits for a session.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("LC_ALL", "C.UTF-8");
  qInstallMessageHandler(tessera::apps::ShowSerious);
  const QApplication application(argc, argv);
  tessera::apps::UseDecimalPoint();
  const tessera::apps::TStandardProviders providers;
  return tessera::apps::RunGuarded(QApplication::arguments());
}
