// SPDX-License-Identifier: MIT
#pragma once

#include <QDesignerDynamicPropertySheetExtension>
#include <QDesignerPropertySheetExtension>
#include <QExtensionFactory>
#include <QMetaProperty>

#include <vector>

namespace tessera::designer {

/// The properties of a component in the property editor, with those of its parts: a property that is an object, as
/// TTessera's Options, is a group whose rows are the properties of that object, under names as "Options.UseBGColor".
/// A form file keeps those that are set under these names, as it keeps dynamic properties, by QObject::setProperty: to
/// the designer they are that.
///
/// A part stands where the property stands that it is. These places never change; dynamic properties, which come and
/// go, stand behind them all.
///
/// Of a component that is no widget nothing is shown that only widgets have.
class ComponentSheet : public QObject,
                       public QDesignerPropertySheetExtension,
                       public QDesignerDynamicPropertySheetExtension {
  Q_OBJECT
  Q_INTERFACES(QDesignerPropertySheetExtension QDesignerDynamicPropertySheetExtension)

 public:
  /// Belongs to the component. The two sheets are those that the designer has for it otherwise.
  ComponentSheet(QObject &component, QDesignerPropertySheetExtension &own,
                 QDesignerDynamicPropertySheetExtension &dynamic);

  /// That of a component; nullptr when it has none.
  [[nodiscard]] static ComponentSheet *Find(const QObject &component);
  /// The values from which a property of a part is picked, where it is an enumeration; a form file has their names.
  [[nodiscard]] QStringList GetChoices(const QString &name) const;

  [[nodiscard]] int count() const override { return m_own.count() + int(m_rows.size()); }
  [[nodiscard]] int indexOf(const QString &name) const override;
  [[nodiscard]] QString propertyName(int index) const override;
  [[nodiscard]] QString propertyGroup(int index) const override;
  void setPropertyGroup(int index, const QString &group) override;
  [[nodiscard]] bool hasReset(int index) const override;
  bool reset(int index) override;
  [[nodiscard]] bool isVisible(int index) const override;
  void setVisible(int index, bool visible) override;
  [[nodiscard]] bool isAttribute(int index) const override;
  void setAttribute(int index, bool attribute) override;
  [[nodiscard]] QVariant property(int index) const override;
  void setProperty(int index, const QVariant &value) override;
  [[nodiscard]] bool isChanged(int index) const override;
  void setChanged(int index, bool changed) override;
  [[nodiscard]] bool isEnabled(int index) const override;

  [[nodiscard]] bool dynamicPropertiesAllowed() const override { return m_dynamic.dynamicPropertiesAllowed(); }
  int addDynamicProperty(const QString &name, const QVariant &value) override;
  bool removeDynamicProperty(int index) override;
  [[nodiscard]] bool isDynamicProperty(int index) const override;
  [[nodiscard]] bool canAddDynamicProperty(const QString &name) const override;

 private:
  struct Row {
    QString group;
    QMetaProperty property;
    QObject *part;
    QVariant initial;
    bool isChanged = false;

    [[nodiscard]] QString GetName() const { return group + u'.' + QLatin1String(property.name()); }
    [[nodiscard]] QVariant Read() const;
  };
  void AddPart(const QString &name, QObject &part);
  /// None for a row of the component's own.
  [[nodiscard]] const Row *RowAt(int index) const;
  [[nodiscard]] Row *RowAt(int index) { return const_cast<Row *>(std::as_const(*this).RowAt(index)); }
  /// Between the places here and in the component's own sheet.
  [[nodiscard]] int ToOwn(int index) const;
  [[nodiscard]] int FromOwn(int index) const;

  QDesignerPropertySheetExtension &m_own;
  QDesignerDynamicPropertySheetExtension &m_dynamic;
  bool m_isWidget;
  std::vector<Row> m_rows;
  /// What stands where: places in the component's own sheet, and rows, which count down from -1.
  std::vector<int> m_places;
};

/// Gives a ComponentSheet to every component that needs one.
class ComponentSheetFactory : public QExtensionFactory {
 public:
  explicit ComponentSheetFactory(QExtensionManager &manager);

 protected:
  QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;

 private:
  mutable bool m_isAskingOthers = false;
};

}  // namespace tessera::designer
