// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDesignerComponents>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowCursorInterface>
#include <QDesignerFormWindowInterface>
#include <QDesignerFormWindowManagerInterface>
#include <QDesignerIntegration>
#include <QDesignerPropertyEditorInterface>
#include <QDesignerPropertySheetExtension>
#include <QDesignerWidgetFactoryInterface>
#include <QExtensionManager>
#include <QMainWindow>
#include <gtest/gtest.h>

#include <memory>

namespace tessera::test {

/// The form designer with the plugin, and an empty form.
class DesignerFixture : public testing::Test {
 protected:
  using Manager = QDesignerFormWindowManagerInterface;

  DesignerFixture() {
    QApplication::addLibraryPath(QStringLiteral(TESSERA_PLUGINS));
    QDesignerComponents::initializeResources();
    core.reset(QDesignerComponents::createFormEditor(nullptr));
    window = std::make_unique<QMainWindow>();
    core->setTopLevel(window.get());
    core->setPropertyEditor(QDesignerComponents::createPropertyEditor(core.get(), window.get()));
    core->setObjectInspector(QDesignerComponents::createObjectInspector(core.get(), window.get()));
    core->setActionEditor(QDesignerComponents::createActionEditor(core.get(), window.get()));
    new QDesignerIntegration(core.get(), core.get());
    QDesignerComponents::initializePlugins(core.get());
    form = OpenForm(Ui(QStringLiteral("<widget class='QWidget' name='Form'>%1</widget>").arg(Geometry(600, 450))));
  }
  ~DesignerFixture() override { window.reset(); }

  QDesignerFormWindowInterface *OpenForm(const QString &contents) {
    QDesignerFormWindowInterface *opened = core->formWindowManager()->createFormWindow(window.get());
    core->formWindowManager()->setActiveFormWindow(opened);
    EXPECT_TRUE(opened->setContents(contents));
    Settle();
    return opened;
  }

  /// Puts a component of the library on the form, as when it is dropped there.
  void Drop(const QString &className, const QString &name) {
    const QString widget = QStringLiteral("<widget class='tessera::%1' name='%2'>%3</widget>");
    QApplication::clipboard()->setText(
        Ui(QStringLiteral("<widget class='QWidget' name='__qt_fake_top_level'>%1</widget>")
               .arg(widget.arg(className, name, Geometry(60, 40)))));
    form->clearSelection();
    form->selectWidget(form->mainContainer());
    Run(Manager::PasteAction);
  }
  void Run(Manager::Action action) {
    Settle();
    core->formWindowManager()->action(action)->trigger();
    Settle();
  }
  void Select(const QString &name) {
    form->clearSelection();
    form->selectWidget(Find(name));
  }
  static void Settle() {
    // Twice, because an event may ask for another one.
    QApplication::processEvents();
    QApplication::processEvents();
  }

  [[nodiscard]] QWidget *Find(const QString &name) const { return form->mainContainer()->findChild<QWidget *>(name); }
  [[nodiscard]] QDesignerPropertySheetExtension *SheetOf(QObject *object) const {
    return qt_extension<QDesignerPropertySheetExtension *>(core->extensionManager(), object);
  }
  /// Sets a property by hand, as the property editor does it.
  void Set(const QString &widget, const QString &property, const QVariant &value) {
    form->cursor()->setWidgetProperty(Find(widget), property, value);
    Settle();
  }
  /// What links the components of the form to a map, such as "panTool:map".
  [[nodiscard]] std::string Links() const {
    QStringList links;
    for (const QWidget *widget : form->mainContainer()->findChildren<QWidget *>()) {
      // What was undone is still there.
      if (!form->isManaged(const_cast<QWidget *>(widget))) continue;
      const QMetaObject &type = *widget->metaObject();
      const char *link = type.indexOfProperty("Tessera") >= 0 ? "Tessera" : "Map";
      if (type.indexOfProperty(link) >= 0) links << widget->objectName() + u':' + widget->property(link).toString();
    }
    links.sort();
    return links.join(u' ').toStdString();
  }

  std::unique_ptr<QDesignerFormEditorInterface> core;
  std::unique_ptr<QMainWindow> window;
  QDesignerFormWindowInterface *form = nullptr;

 private:
  static QString Ui(const QString &widget) { return QStringLiteral("<ui version='4.0'>%1</ui>").arg(widget); }
  static QString Geometry(int width, int height) {
    return QStringLiteral(
               "<property name='geometry'><rect><x>0</x><y>0</y><width>%1</width><height>%2</height></rect></property>")
        .arg(width)
        .arg(height);
  }
};

}  // namespace tessera::test
