// SPDX-License-Identifier: MIT
#pragma once

#include <designer/Components.h>

#include <QIcon>

namespace tessera::designer {

/// Whether a widget made in `parent` is for a form in the making, and not for a preview of one.
[[nodiscard]] bool IsOnForm(QWidget *parent);

/// How a component that is no widget looks on a form in the making: its icon above its name.
class FormItemLook {
 public:
  explicit FormItemLook(const Component &component);
  /// Turns a widget that is never seen into one that shows the look.
  static void Show(QWidget &item);
  void Paint(QWidget &item) const;

 private:
  QIcon m_icon;
};

/// An `Item` (see TFormComponent) that is seen on a form in the making. To the designer it is an Item, as it has no
/// meta object of its own.
template <class Item>
class FormItem : public Item {
 public:
  FormItem(const Component &component, QWidget *parent) : Item(parent), m_look(component) { FormItemLook::Show(*this); }
  [[nodiscard]] QSize sizeHint() const override { return this->minimumSize(); }

 protected:
  void paintEvent(QPaintEvent * /*event*/) override { m_look.Paint(*this); }

 private:
  FormItemLook m_look;
};

}  // namespace tessera::designer
