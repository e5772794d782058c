// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QWidget>

#include <span>

namespace tessera::designer {

/// A component as the form designer offers it.
struct Component {
  const char *page;       ///< of the widget box
  const char *className;  ///< with its namespace
  const char *header;
  const char *baseClass;  ///< the class of Qt that uic and the designer treat it as
  const char *icon;       ///< see ThemedIcon
  const char *name;       ///< that a new one gets on a form
  const char *description;
  QSize sizePx;             ///< of a new one on a form; none for a component that is shown as an icon there
  const char *mapProperty;  ///< the property that names its map; nullptr when there is none
  const char *plainTexts;   ///< properties that are texts nobody translates, with spaces between
  /// Makes one; in a form designer it is shown, behaves and leaves the process as suits a form in the making.
  QWidget *(*make)(const Component &component, QWidget *parent, bool isInDesigner);
};

/// All components, page by page, in the order in which they are offered.
[[nodiscard]] std::span<const Component> GetComponents();
/// What `object` is an instance of; nullptr for all that is not offered here.
[[nodiscard]] const Component *FindComponent(const QObject &object);

}  // namespace tessera::designer
