// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QMenu>

namespace tessera::apps {

/// The languages that the editor speaks.
struct Language {
  QString code;  ///< such as "ru"; empty for that of the system
  QString name;  ///< in the language itself
};
[[nodiscard]] QList<Language> Languages();

/// The locale of the editor's windows: that of the language chosen in the settings, or else the system's. Files do not
/// depend on it.
[[nodiscard]] QLocale WindowLocale();

/// Translates what the application shows from now on, as far as there are translations: Qt's, the library's and the
/// editor's own.
void Translate(const QLocale &locale);

/// The choice of a language, which counts from the next start.
class LanguageMenu : public QMenu {
  Q_OBJECT

 public:
  explicit LanguageMenu(const QString &title, QWidget *parent = nullptr);

 Q_SIGNALS:
  /// For the person.
  void Told(const QString &text);
};

}  // namespace tessera::apps
