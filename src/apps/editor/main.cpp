// SPDX-License-Identifier: MIT
#include <apps/common/ProgramSetup.h>
#include <apps/editor/EditRecovery.h>
#include <apps/editor/Language.h>
#include <apps/editor/LayerFiles.h>
#include <apps/editor/SampleMap.h>
#include <apps/editor/TEditorWindow.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>
#include <QWindow>

namespace {

/// Opens the files once the window stands on the screen, so that loading shows its progress there.
void OpenOnceShown(tessera::apps::TEditorWindow &window, const QStringList &files) {
  if (window.windowHandle()->isExposed()) {
    window.GetFiles().Open(files);
    return;
  }
  constexpr int IntervalMs = 10;
  QTimer::singleShot(IntervalMs, &window, [&window, files] { OpenOnceShown(window, files); });
}

}  // namespace

int main(int argc, char **argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName(QStringLiteral("tessera"));
  QApplication::setApplicationName(QStringLiteral("tessera-editor"));
  QApplication::setApplicationVersion(QStringLiteral(TESSERA_VERSION));
  tessera::apps::UseDecimalPoint();
  const QLocale locale = tessera::apps::WindowLocale();
  tessera::apps::Translate(locale);

  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Shows and edits vector maps."));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Map files to open, the bottom layer first."),
                               QStringLiteral("[FILE…]"));
  parser.process(application);

  const tessera::apps::TStandardProviders providers;
  tessera::apps::TEditorWindow window;
  window.setLocale(locale);
  window.show();
  QTimer::singleShot(0, &window, [&window] { window.GetRecovery().Offer(); });
  QStringList files = parser.positionalArguments();
  if (files.isEmpty() && tessera::apps::TakeFirstRun()) files = tessera::apps::SampleMapFiles();
  if (!files.isEmpty()) OpenOnceShown(window, files);
  return QApplication::exec();
}
