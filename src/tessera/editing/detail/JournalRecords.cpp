// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/data/TDataFields.h>
#include <tessera/editing/detail/JournalRecords.h>

#include <QDataStream>
#include <QDateTime>
#include <QFileInfo>
#include <QIODevice>

#include <array>

namespace tessera::detail {
namespace {

[[noreturn]] void Refuse() {
  throw EConvertError(QStringLiteral("The journal is damaged."));
}

void Pack(QDataStream &stream, const JournalBegin &record) {
  stream << record.layer << record.source.fileName << record.source.sizeBytes << record.source.changedMs
         << record.source.objectCount;
}
void Unpack(QDataStream &stream, JournalBegin &record) {
  stream >> record.layer >> record.source.fileName >> record.source.sizeBytes >> record.source.changedMs >>
      record.source.objectCount;
}

void Pack(QDataStream &stream, const JournalChange &record) {
  stream << record.layer << record.name << record.columns << quint64(record.runs.size());
  for (const JournalChange::Run &run : record.runs) stream << run.first << run.count << run.packed;
}
void Unpack(QDataStream &stream, JournalChange &record) {
  quint64 runs = 0;
  stream >> record.layer >> record.name >> record.columns >> runs;
  for (; runs > 0 && stream.status() == QDataStream::Ok; --runs) {
    JournalChange::Run &run = record.runs.emplace_back();
    stream >> run.first >> run.count >> run.packed;
  }
}

/// A record that has nothing but its layer.
template <class Record>
void Pack(QDataStream &stream, const Record &record) {
  stream << record.layer;
}
template <class Record>
void Unpack(QDataStream &stream, Record &record) {
  stream >> record.layer;
}

template <class Record>
JournalRecord UnpackAs(QDataStream &stream) {
  Record record;
  Unpack(stream, record);
  return record;
}

}  // namespace

JournalSource JournalSource::Of(const QString &fileName) {
  const QFileInfo file(fileName);
  if (fileName.isEmpty() || !file.exists()) return {};
  return {file.absoluteFilePath(), file.size(), file.lastModified().toMSecsSinceEpoch(), 0};
}

bool JournalSource::IsThere() const {
  const QFileInfo file(fileName);
  return file.exists() && file.size() == sizeBytes && file.lastModified().toMSecsSinceEpoch() == changedMs;
}

QByteArray PackRecord(const JournalRecord &record) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream.setVersion(QDataStream::Qt_6_4);
  stream << quint8(record.index());
  std::visit([&](const auto &one) { Pack(stream, one); }, record);
  return bytes;
}

JournalRecord UnpackRecord(const QByteArray &bytes) {
  QDataStream stream(bytes);
  stream.setVersion(QDataStream::Qt_6_4);
  // In the order of the variant.
  constexpr std::array Kinds{UnpackAs<JournalBegin>, UnpackAs<JournalChange>, UnpackAs<JournalEnd>,
                             UnpackAs<JournalSaving>};
  quint8 kind = 0;
  stream >> kind;
  if (kind >= Kinds.size()) Refuse();
  JournalRecord record = Kinds[kind](stream);
  if (stream.status() != QDataStream::Ok || !stream.atEnd()) Refuse();
  return record;
}

QByteArray PackColumns(const TDataFields &columns) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream.setVersion(QDataStream::Qt_6_4);
  for (int i = 0; i < columns.GetCount(); ++i) {
    const TDataFieldView column = columns.GetFields(i);
    stream << column.GetName() << quint8(column.GetDataType()) << qint32(column.GetSize());
  }
  return bytes;
}

void UnpackColumns(const QByteArray &bytes, TDataFields &columns) {
  QDataStream stream(bytes);
  stream.setVersion(QDataStream::Qt_6_4);
  columns.Clear();
  while (!stream.atEnd()) {
    QString name;
    quint8 type = 0;
    qint32 size = 0;
    stream >> name >> type >> size;
    if (stream.status() != QDataStream::Ok || type > quint8(TDataType::dtBoolean)) Refuse();
    // Add would make something of a width of 0.
    columns.Insert(columns.GetCount(), name, TDataType(type), size);
  }
}

}  // namespace tessera::detail
