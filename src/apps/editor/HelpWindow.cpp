// SPDX-License-Identifier: MIT
#include <apps/editor/HelpWindow.h>

#include <QFile>
#include <QLocale>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace tessera::apps {
namespace {

constexpr QSize InitialSize(720, 640);

QString PageOf(const QLocale &locale) {
  const QString page = QStringLiteral(":/tessera/help/%1.html");
  const QString own = page.arg(QLocale::languageToCode(locale.language()));
  return QFile::exists(own) ? own : page.arg(QStringLiteral("en"));
}

}  // namespace

HelpWindow::HelpWindow(const QLocale &locale, QWidget *parent) : QDialog(parent) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(tr("Help"));
  auto *page = new QTextBrowser(this);
  page->setAccessibleName(tr("Help"));
  page->setOpenExternalLinks(true);
  page->setSource(QUrl(QStringLiteral("qrc") + PageOf(locale)));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(page);
  resize(InitialSize);
}

}  // namespace tessera::apps
