// SPDX-License-Identifier: MIT
#include <apps/tessera/LayerInfo.h>
#include <tessera/layers/LayerBounds.h>

#include <QJsonArray>

#include <cstdlib>
#include <cxxabi.h>
#include <numeric>
#include <typeinfo>

namespace tessera::apps {
namespace {

/// The name of a class without its namespace.
QString ClassNameOf(const std::type_info &type) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                         std::free);
  return QString::fromLatin1(name.get()).section(QStringLiteral("::"), -1);
}

qint64 Total(const std::map<QString, qint64> &counts) {
  return std::accumulate(counts.begin(), counts.end(), qint64(0),
                         [](qint64 sum, const auto &entry) { return sum + entry.second; });
}

/// "5 (3 TRegion, 2 TSymbol)"
QString CountsText(const std::map<QString, qint64> &counts) {
  QStringList entries;
  for (const auto &[name, count] : counts) entries.append(QString::number(count) + u' ' + name);
  const QString total = QString::number(Total(counts));
  return entries.isEmpty() ? total : QString(total + QStringLiteral(" (") + entries.join(QStringLiteral(", ")) + u')');
}

QJsonObject CountsJson(const std::map<QString, qint64> &counts) {
  QJsonObject json;
  for (const auto &[name, count] : counts) json.insert(name, count);
  return json;
}

/// A column's type as people write it; that of a boolean column has no name of its own in the library.
QString TypeName(const TDataFieldView &field) {
  return field.GetDataType() == TDataType::dtBoolean ? QStringLiteral("Logical") : field.GetDataTypeName();
}

QString FieldsText(const TDataFields &fields) {
  QStringList entries;
  for (int i = 0; i < fields.GetCount(); ++i) {
    const TDataFieldView field = fields.GetFields(i);
    entries.append(field.GetName() + u' ' + TypeName(field));
  }
  return entries.isEmpty() ? QStringLiteral("none") : entries.join(QStringLiteral(", "));
}

QJsonArray FieldsJson(const TDataFields &fields) {
  QJsonArray json;
  for (int i = 0; i < fields.GetCount(); ++i) {
    const TDataFieldView field = fields.GetFields(i);
    json.append(QJsonObject{{QStringLiteral("name"), field.GetName()},
                            {QStringLiteral("type"), TypeName(field).section(u'(', 0, 0)},
                            {QStringLiteral("size"), field.GetSize()}});
  }
  return json;
}

QString BoundsText(const std::optional<TBounds> &bounds) {
  if (!bounds) return QStringLiteral("none");
  constexpr int AllDigits = 15;
  const auto text = [](double value) { return QString::number(value, 'g', AllDigits); };
  return text(bounds->MinX) + u' ' + text(bounds->MinY) + QStringLiteral(" to ") + text(bounds->MaxX) + u' ' +
         text(bounds->MaxY);
}

QJsonValue BoundsJson(const std::optional<TBounds> &bounds) {
  if (!bounds) return QJsonValue::Null;
  return QJsonArray{bounds->MinX, bounds->MinY, bounds->MaxX, bounds->MaxY};
}

QString Row(const QString &name, const QString &value) {
  constexpr int NameWidth = 15;
  return QStringLiteral("  ") + name.leftJustified(NameWidth) + value + u'\n';
}

}  // namespace

qint64 CountVertices(const TCustomMapObject &object) {
  const auto parts = object.GetParts().Items();
  return std::accumulate(parts.begin(), parts.end(), qint64(0),
                         [](qint64 sum, const TPart &part) { return sum + part.GetPoints().GetCount(); });
}

TLayerInfo Inspect(const TMapLayer &layer) {
  TLayerInfo info;
  const std::type_info *type = nullptr;
  qint64 *countOfType = nullptr;
  for (int i = 0; i < layer.GetObjectCount(); ++i) {
    const TCustomMapObject &object = *layer.GetObjects(i);
    // Mostly objects of one class follow on each other; names take long.
    if (type == nullptr || *type != typeid(object)) {
      type = &typeid(object);
      countOfType = &info.objects[ClassNameOf(*type)];
    }
    ++*countOfType;
    info.parts += object.GetParts().GetCount();
    info.vertices += CountVertices(object);
  }
  info.bounds = BoundsOf(layer);
  return info;
}

QString ToText(const TLoadedFile &file, const TLayerInfo &info) {
  const TMapLayer &layer = *file.layer;
  QString text = layer.GetName() + u'\n';
  text += Row(QStringLiteral("file"), file.fileName);
  text += Row(QStringLiteral("provider"), file.provider);
  text += Row(QStringLiteral("objects"), CountsText(info.objects));
  text += Row(QStringLiteral("parts"), QString::number(info.parts));
  text += Row(QStringLiteral("vertices"), QString::number(info.vertices));
  text += Row(QStringLiteral("fields"), FieldsText(layer.GetFields()));
  text += Row(QStringLiteral("bounds"), BoundsText(info.bounds));
  if (!file.report.skippedLines.empty()) {
    text += Row(QStringLiteral("skipped lines"), CountsText(file.report.skippedLines));
  }
  for (const QString &warning : file.warnings) text += Row(QStringLiteral("warning"), warning);
  return text + u'\n';
}

QJsonObject ToJson(const TLoadedFile &file, const TLayerInfo &info) {
  const TMapLayer &layer = *file.layer;
  QJsonObject json{{QStringLiteral("name"), layer.GetName()},
                   {QStringLiteral("file"), file.fileName},
                   {QStringLiteral("provider"), file.provider},
                   {QStringLiteral("objectCount"), Total(info.objects)},
                   {QStringLiteral("objects"), CountsJson(info.objects)},
                   {QStringLiteral("parts"), info.parts},
                   {QStringLiteral("vertices"), info.vertices},
                   {QStringLiteral("fields"), FieldsJson(layer.GetFields())},
                   {QStringLiteral("bounds"), BoundsJson(info.bounds)},
                   {QStringLiteral("skippedLines"), CountsJson(file.report.skippedLines)},
                   {QStringLiteral("warnings"), QJsonArray::fromStringList(file.warnings)},
                   {QStringLiteral("error"), QJsonValue::Null}};
  if (const auto &defect = file.report.firstError) {
    json[QStringLiteral("error")] =
        QJsonObject{{QStringLiteral("line"), defect->line}, {QStringLiteral("words"), defect->words}};
  }
  return json;
}

}  // namespace tessera::apps
