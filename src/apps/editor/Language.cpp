// SPDX-License-Identifier: MIT
#include <apps/editor/Language.h>

#include <QActionGroup>
#include <QCoreApplication>
#include <QLibraryInfo>
#include <QSettings>
#include <QTranslator>

#include <memory>

namespace tessera::apps {
namespace {

QString LanguageKey() {
  return QStringLiteral("language");
}

void Install(const QLocale &locale, const QString &name, const QString &folder) {
  auto translator = std::make_unique<QTranslator>();
  if (!translator->load(locale, name, QStringLiteral("_"), folder)) return;
  translator->setParent(QCoreApplication::instance());
  QCoreApplication::installTranslator(translator.release());
}

}  // namespace

QList<Language> Languages() {
  return {{QString(), LanguageMenu::tr("As the &system")},
          {QStringLiteral("en"), QStringLiteral("&English")},
          {QStringLiteral("ru"), QStringLiteral("&Русский")}};
}

QLocale WindowLocale() {
  const QString code = QSettings().value(LanguageKey()).toString();
  const QLocale system = QLocale::system();
  // The system's formats stay where its language is the chosen one.
  return code.isEmpty() || QLocale(code).language() == system.language() ? system : QLocale(code);
}

void Translate(const QLocale &locale) {
  const QString own = QStringLiteral(":/tessera/translations");
  Install(locale, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  Install(locale, QStringLiteral("tessera"), own);
  Install(locale, QStringLiteral("tessera-editor"), own);
}

LanguageMenu::LanguageMenu(const QString &title, QWidget *parent) : QMenu(title, parent) {
  const QString chosen = QSettings().value(LanguageKey()).toString();
  auto *group = new QActionGroup(this);
  for (const Language &language : Languages()) {
    QAction *action = group->addAction(addAction(language.name));
    action->setCheckable(true);
    action->setChecked(language.code == chosen);
    connect(action, &QAction::triggered, this, [this, code = language.code] {
      QSettings().setValue(LanguageKey(), code);
      Q_EMIT Told(tr("The language changes with the next start."));
    });
  }
}

}  // namespace tessera::apps
