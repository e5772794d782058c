// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace tessera::apps {

/// The page that tells how to work with the editor, in the language of the locale where there is one, else in English.
/// It does not block, and deletes itself when it is closed.
class HelpWindow : public QDialog {
  Q_OBJECT

 public:
  HelpWindow(const QLocale &locale, QWidget *parent);
};

}  // namespace tessera::apps
