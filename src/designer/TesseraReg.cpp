// SPDX-License-Identifier: MIT
#include <designer/Components.h>
#include <designer/FormFollower.h>
#include <designer/TesseraReg.h>
#include <icons/ThemedIcon.h>

#include <QXmlStreamWriter>

namespace tessera::designer {
namespace {

void WriteGeometry(QXmlStreamWriter &xml, const QSize &sizePx) {
  xml.writeStartElement(QStringLiteral("property"));
  xml.writeAttribute(QStringLiteral("name"), QStringLiteral("geometry"));
  xml.writeStartElement(QStringLiteral("rect"));
  for (const auto &[element, value] :
       {std::pair{"x", 0}, {"y", 0}, {"width", sizePx.width()}, {"height", sizePx.height()}}) {
    xml.writeTextElement(QLatin1String(element), QString::number(value));
  }
  xml.writeEndElement();
  xml.writeEndElement();
}

void WritePlainTexts(QXmlStreamWriter &xml, const char *names) {
  xml.writeStartElement(QStringLiteral("propertyspecifications"));
  for (const QString &name : QString::fromLatin1(names).split(u' ', Qt::SkipEmptyParts)) {
    xml.writeEmptyElement(QStringLiteral("stringpropertyspecification"));
    xml.writeAttribute(QStringLiteral("name"), name);
    xml.writeAttribute(QStringLiteral("type"), QStringLiteral("singleline"));
    xml.writeAttribute(QStringLiteral("notr"), QStringLiteral("true"));
  }
  xml.writeEndElement();
}

/// A component, as designers ask for it.
class Entry : public QDesignerCustomWidgetInterface {
 public:
  explicit Entry(const Component &component) : m_component(component) {}

  [[nodiscard]] QString name() const override { return QString::fromLatin1(m_component.className); }
  [[nodiscard]] QString group() const override { return QString::fromLatin1(m_component.page); }
  [[nodiscard]] QString toolTip() const override { return QString::fromLatin1(m_component.description); }
  [[nodiscard]] QString whatsThis() const override { return toolTip(); }
  [[nodiscard]] QString includeFile() const override { return u'<' + QString::fromLatin1(m_component.header) + u'>'; }
  [[nodiscard]] QIcon icon() const override { return ThemedIcon(QString::fromLatin1(m_component.icon)); }
  [[nodiscard]] bool isContainer() const override { return false; }
  [[nodiscard]] QString domXml() const override;

  QWidget *createWidget(QWidget *parent) override { return m_component.make(m_component, parent, m_isInDesigner); }
  /// Only designers call this, and each one does.
  void initialize(QDesignerFormEditorInterface *core) override {
    m_isInDesigner = true;
    FormFollower::Install(*core);
  }

 private:
  const Component &m_component;
  bool m_isInDesigner = false;
};

QString Entry::domXml() const {
  QString text;
  QXmlStreamWriter xml(&text);
  xml.writeStartElement(QStringLiteral("ui"));
  xml.writeAttribute(QStringLiteral("language"), QStringLiteral("c++"));
  xml.writeAttribute(QStringLiteral("displayname"), name().section(QStringLiteral("::"), -1));
  xml.writeStartElement(QStringLiteral("widget"));
  xml.writeAttribute(QStringLiteral("class"), name());
  xml.writeAttribute(QStringLiteral("name"), QString::fromLatin1(m_component.name));
  if (m_component.sizePx.isValid()) WriteGeometry(xml, m_component.sizePx);
  xml.writeEndElement();
  xml.writeStartElement(QStringLiteral("customwidgets"));
  xml.writeStartElement(QStringLiteral("customwidget"));
  xml.writeTextElement(QStringLiteral("class"), name());
  xml.writeTextElement(QStringLiteral("extends"), QString::fromLatin1(m_component.baseClass));
  WritePlainTexts(xml, m_component.plainTexts);
  xml.writeEndDocument();
  return text;
}

}  // namespace

TesseraReg::TesseraReg(QObject *parent) : QObject(parent) {
  for (const Component &component : GetComponents()) m_entries.push_back(std::make_unique<Entry>(component));
}

TesseraReg::~TesseraReg() = default;

QList<QDesignerCustomWidgetInterface *> TesseraReg::customWidgets() const {
  QList<QDesignerCustomWidgetInterface *> entries;
  for (const auto &entry : m_entries) entries.append(entry.get());
  return entries;
}

}  // namespace tessera::designer
