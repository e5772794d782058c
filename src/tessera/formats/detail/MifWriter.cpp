// SPDX-License-Identifier: MIT
#include <tessera/base/detail/Numbers.h>
#include <tessera/data/detail/ValueRecordIO.h>
#include <tessera/formats/detail/MifStyles.h>
#include <tessera/formats/detail/MifText.h>
#include <tessera/formats/detail/MifWriter.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TText.h>

#include <algorithm>
#include <charconv>

namespace tessera::detail {
namespace {

constexpr char Delimiter = ',';
constexpr std::string_view LineEnd = "\r\n";
constexpr std::size_t MostVertexBytes = 2 * Fixed6Size + 1 + LineEnd.size();

/// In single quotes, with those within doubled.
void AppendQuoted(std::string_view bytes, std::string &line) {
  line += '\'';
  for (const char c : bytes) line.append(c == '\'' ? 2 : 1, c);
  line += '\'';
}

}  // namespace

/// How objects are written, by kind: the first kind that an object is of counts.
struct KindWriters {
  struct Entry {
    const char *name;
    bool (*write)(MifWriter &writer, const TCustomMapObject &object);
  };
  template <class Kind, void (MifWriter::*Write)(const Kind &)>
  static bool WriteAs(MifWriter &writer, const TCustomMapObject &object) {
    const auto *ofKind = dynamic_cast<const Kind *>(&object);
    if (ofKind != nullptr) (writer.*Write)(*ofKind);
    return ofKind != nullptr;
  }
  static constexpr Entry InOrder[] = {
      {"Region", WriteAs<TRegion, &MifWriter::WriteRegion>},
      {"Pline", WriteAs<TPolyline, &MifWriter::WritePline>},
      {"Rectangle", WriteAs<TRectangle, &MifWriter::WriteRectangle>},
      {"Text", WriteAs<TText, &MifWriter::WriteText>},
      {"Point", WriteAs<TSymbol, &MifWriter::WritePoint>},
  };
  static constexpr std::size_t RectangleIndex = 2;
};

MifWriter::MifWriter(const TMapLayer &layer, ByteOutput &mif, ByteOutput &mid, TFormatReport &report)
    : m_layer(layer),
      m_mif(mif),
      m_mid(mid),
      m_report(report),
      m_separator(DecimalSeparator()),
      m_counts(std::size(KindWriters::InOrder) + 1) {}

void MifWriter::Write() {
  WriteHeader();
  for (int i = 0; i < m_layer.GetObjectCount(); ++i) {
    const TCustomMapObject &object = *m_layer.GetObjects(i);
    WriteValues(object);
    WriteGeometry(object);
  }
  FinishReport();
}

void MifWriter::AddNumber(int number) {
  char digits[16];
  m_line.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void MifWriter::AddText(QStringView text) {
  m_unknownCharacters += EncodeWindows1251(text, m_bytes);
  m_line += m_bytes;
}

void MifWriter::EndLine() {
  m_line += LineEnd;
  m_mif.Append(m_line);
  m_line.clear();
}

void MifWriter::WriteHeader() {
  for (const std::string_view line : {VersionLine, CharsetLine, std::string_view("Delimiter \",\""), CoordSysLine}) {
    m_line = line;
    EndLine();
  }
  m_line = "Columns ";
  AddNumber(m_layer.GetFields().GetCount());
  EndLine();
  for (int i = 0; i < m_layer.GetFields().GetCount(); ++i) WriteColumn(m_layer.GetFields().GetFields(i));
  m_line = DataLine;
  EndLine();
}

void MifWriter::WriteColumn(const TDataFieldView &column) {
  using enum TDataType;
  const TDataType type = column.GetDataType();
  if (type != dtString && type != dtDecimal && type != dtInteger) ++m_strayColumns;
  switch (type) {
    case TDataType::dtString:
      AddText(column.GetName());
      m_line += " Char(";
      AddNumber(column.GetSize());
      m_line += ')';
      break;
    case TDataType::dtFloat:
      m_line = "%S Float";
      break;
    case TDataType::dtDecimal:
      AddText(column.GetName());
      m_line += " Decimal(9, 2)";
      break;
    case TDataType::dtInteger:
      AddText(column.GetName());
      m_line += " Integer";
      break;
    case TDataType::dtSmallInt:
      AddText(column.GetName());
      m_line += " SmalInt";
      break;
    case TDataType::dtDateTime:
    case TDataType::dtDate:
    case TDataType::dtTime:
      m_line = "Date";
      break;
    case TDataType::dtBoolean:
      return;
  }
  EndLine();
}

void MifWriter::WriteValues(const TCustomMapObject &object) {
  const TDataFields &columns = m_layer.GetFields();
  const TDataFields &values = object.GetFields();
  ValueRecordReader record(values.GetRecord());
  m_values.clear();
  for (int i = 0; i < columns.GetCount(); ++i) {
    const TDataFieldView field = values.GetFields(i);
    const std::string_view packed = record.NextPacked();
    std::string_view text;
    if (!ValueRecordReader::IsText(packed, text) || !IsAscii(text) || !field.IsShownAsStored()) {
      m_unknownCharacters += EncodeWindows1251(field.TextOf(ValueRecordReader::Unpack(packed)), m_bytes);
      text = m_bytes;
    }
    if (text.find_first_of(",\r\n") != std::string_view::npos) ++m_brokenValues;
    if (i > 0) m_values += Delimiter;
    if (columns.GetFields(i).GetDataType() == TDataType::dtString) {
      AppendQuoted(text, m_values);
    } else {
      m_values += text;
    }
  }
  m_values += LineEnd;
  m_mid.Append(m_values);
}

void MifWriter::WriteGeometry(const TCustomMapObject &object) {
  std::size_t kind = 0;
  while (kind < std::size(KindWriters::InOrder) && !KindWriters::InOrder[kind].write(*this, object)) ++kind;
  ++m_counts[kind];
}

void MifWriter::WriteRegion(const TRegion &region) {
  if (typeid(region) != typeid(TRegion)) ++m_plainRegions;
  const auto parts = region.GetParts().Items();
  m_line = "Region ";
  AddNumber(int(parts.size()));
  EndLine();
  for (const TPart &part : parts) {
    AddNumber(part.GetPoints().GetCount());
    EndLine();
    WriteVertices(part.GetPoints().Points());
  }
  WritePen(*region.GetStyle());
  WriteBrush(*region.GetStyle());
}

void MifWriter::WritePline(const TPolyline &line) {
  const auto parts = line.GetParts().Items();
  const auto points = parts.empty() ? std::span<const TMapPoint>() : parts[0].GetPoints().Points();
  m_line = "Pline ";
  AddNumber(int(points.size()));
  EndLine();
  WriteVertices(points);
  WritePen(*line.GetStyle());
  if (parts.size() > 1) m_droppedParts += qint64(parts.size()) - 1;
}

void MifWriter::WriteRectangle(const TRectangle &rectangle) {
  const TBounds box = rectangle.GetCorners();
  const TMapPoint corners[] = {
      {box.MinX, box.MinY}, {box.MaxX, box.MinY}, {box.MaxX, box.MaxY}, {box.MinX, box.MaxY}, {box.MinX, box.MinY}};
  m_mif.Append("Region 1\r\n5\r\n");
  WriteVertices(corners);
  WritePen(*rectangle.GetStyle());
  WriteBrush(*rectangle.GetStyle());
}

TMapPoint MifWriter::FarCornerOf(const TText &text) const {
  const TMapPoint anchor = text.GetPosition();
  TMapHost *map = m_layer.GetMapHost();
  if (map == nullptr) return {anchor.X + text.GetWidth(), anchor.Y - text.GetHeight()};
  const QSize extent = map->GetCanvas().TextExtent(text.GetText());
  return map->GetViewport().MovedByPixels(anchor, extent.width(), extent.height());
}

void MifWriter::WriteText(const TText &text) {
  if (text.GetAngle() != 0) ++m_turnedTexts;
  m_line = "Text";
  EndLine();
  m_line = '"';
  AddText(text.GetText());
  if (m_line.find_first_of("\"\r\n", 1) != std::string::npos) ++m_brokenTexts;
  m_line += '"';
  EndLine();
  char *room = m_mif.Room(4 * Fixed6Size + 3 + LineEnd.size());
  room = PutPoint(room, text.GetPosition());
  *room++ = ' ';
  m_mif.Advance(PutVertex(room, FarCornerOf(text)));
  const TFont &font = text.GetFont();
  m_line = "Font (\"";
  AddText(font.GetName());
  m_line += "\",";
  AddNumber(FontStyleNumber(font.GetStyle()));
  m_line += Delimiter;
  AddNumber(font.GetSize());
  m_line += Delimiter;
  AddNumber(ColorToMif(font.GetColor()));
  m_line += ')';
  EndLine();
}

void MifWriter::WritePoint(const TSymbol &symbol) {
  m_mif.Append("Point ");
  m_mif.Advance(PutVertex(m_mif.Room(MostVertexBytes), symbol.GetPosition()));
  const TFont &font = symbol.GetFont();
  m_line = "Symbol (";
  AddNumber(symbol.GetShape());
  m_line += Delimiter;
  AddNumber(ColorToMif(font.GetColor()));
  m_line += Delimiter;
  AddNumber(font.GetSize());
  m_line += ",\"";
  AddText(font.GetName());
  m_line += "\",";
  AddNumber(FontStyleNumber(font.GetStyle()));
  m_line += ",0)";
  EndLine();
}

void MifWriter::WritePen(const TObjectStyle &style) {
  m_line = "Pen (";
  AddNumber(style.pen.GetWidth());
  m_line += Delimiter;
  AddNumber(LinePattern(style.pen.GetStyle()));
  m_line += Delimiter;
  AddNumber(ColorToMif(style.pen.GetColor()));
  m_line += ')';
  EndLine();
}

void MifWriter::WriteBrush(const TObjectStyle &style) {
  m_line = "Brush (";
  AddNumber(FillPattern(style.brush.GetStyle()));
  m_line += Delimiter;
  AddNumber(ColorToMif(style.brush.GetColor()));
  if (style.useBGColor && style.brush.GetStyle() != TBrushStyle::bsClear) {
    m_line += Delimiter;
    AddNumber(ColorToMif(style.bgColor));
  }
  m_line += ')';
  EndLine();
}

char *MifWriter::PutPoint(char *out, const TMapPoint &point) {
  const auto put = [this](char *at, double value) {
    char *end = WriteFixed6(at, value, m_separator);
    if (end[-1] > '9') ++m_badCoordinates;  // a word, not a digit
    return end;
  };
  out = put(out, point.X);
  *out++ = ' ';
  return put(out, point.Y);
}

char *MifWriter::PutVertex(char *out, const TMapPoint &vertex) {
  out = PutPoint(out, vertex);
  return std::copy(LineEnd.begin(), LineEnd.end(), out);
}

void MifWriter::WriteVertices(std::span<const TMapPoint> vertices) {
  for (const TMapPoint &vertex : vertices) m_mif.Advance(PutVertex(m_mif.Room(MostVertexBytes), vertex));
}

void MifWriter::FinishReport() {
  for (std::size_t kind = 0; kind < std::size(KindWriters::InOrder); ++kind) {
    m_report.CountObject(QString::fromLatin1(KindWriters::InOrder[kind].name), m_counts[kind]);
  }
  m_report.Lose(TFormatReport::tr("characters that the character set lacks, written as question marks: %1"),
                m_unknownCharacters);
  m_report.Lose(TFormatReport::tr("values with a comma or a line end, which will not be read back as they are: %1"),
                m_brokenValues);
  m_report.Lose(TFormatReport::tr("parts of polylines beyond the first, not written: %1"), m_droppedParts);
  m_report.Lose(TFormatReport::tr("texts with a quotation mark or a line end, which programs may misread: %1"),
                m_brokenTexts);
  m_report.Lose(TFormatReport::tr("coordinates that are no numbers and will not be read back: %1"), m_badCoordinates);
  m_report.Lose(TFormatReport::tr("columns whose names or types will not be read back: %1"), m_strayColumns);
  m_report.Lose(TFormatReport::tr("geodesic circles and the like, written as plain regions: %1"), m_plainRegions);
  m_report.Lose(TFormatReport::tr("rectangles, written as regions: %1"), m_counts[KindWriters::RectangleIndex]);
  m_report.Lose(TFormatReport::tr("angles of texts: %1"), m_turnedTexts);
  m_report.Lose(TFormatReport::tr("objects of kinds that are written without their shape: %1"), m_counts.back());
}

}  // namespace tessera::detail
