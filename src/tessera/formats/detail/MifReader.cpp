// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/base/detail/PlainNumber.h>
#include <tessera/formats/detail/MifReader.h>
#include <tessera/formats/detail/MifText.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSymbol.h>

#include <algorithm>
#include <limits>
#include <span>

namespace tessera::detail {
namespace {

/// A table has no more than 250 columns; beyond this a count is certainly none.
constexpr int MaxColumns = 1000;
/// Parts without points are believed in up to this number, and further ones for so many bytes of the file.
constexpr qint64 MaxEmptyParts = 1000;
constexpr qint64 EmptyPartBytes = 4;
/// Progress is shown whenever a further 256th of the file has been read, not for every line.
constexpr qint64 ProgressSteps = 256;

TDataType ColumnType(std::string_view definition) {
  constexpr KeywordSet<6> TypeWords({"CHAR", "FLOAT", "DECIMAL", "INTEGER", "SMALLINT", "DATE"});
  constexpr std::array Types = {TDataType::dtString,  TDataType::dtFloat,    TDataType::dtDecimal,
                                TDataType::dtInteger, TDataType::dtSmallInt, TDataType::dtDate};
  const int word = TypeWords.FindLast(definition);
  return word < 0 ? TDataType::dtFloat : Types[std::size_t(word)];
}

/// Without the first and the last byte.
std::string_view WithoutQuotes(std::string_view bytes) {
  return bytes.size() > 2 ? bytes.substr(1, bytes.size() - 2) : std::string_view();
}

/// What a column of the type loses; none when nothing.
const char *LossOf(TDataType type, std::string_view definition) {
  switch (type) {
    case TDataType::dtString:
    case TDataType::dtDecimal:
      return QT_TRANSLATE_NOOP("tessera::TFormatReport", "widths of Char and Decimal columns");
    case TDataType::dtSmallInt:
    case TDataType::dtDate:
      return QT_TRANSLATE_NOOP("tessera::TFormatReport", "values of SmallInt and Date columns");
    case TDataType::dtFloat:
      return KeywordSet<1>({"FLOAT"}).FindLast(definition) < 0
                 ? QT_TRANSLATE_NOOP("tessera::TFormatReport", "types of Logical and Time columns")
                 : nullptr;
    default:
      return nullptr;
  }
}

/// Whether a line that says nothing to the reader is one that a save writes.
bool IsWrittenAgain(std::string_view line, std::string_view word) {
  return IsSameWord(word, "Version") || IsSameWord(word, DataLine) || IsSameWord(line, CharsetLine) ||
         IsSameWord(line, CoordSysLine);
}

/// The name under which lines are counted that begin with the word.
QString NameOf(const std::string &word) {
  return word.empty() ? QStringLiteral("other") : QString::fromStdString(word);
}

constexpr std::string_view PlainPointWord = "POINT";

/// ReadFloat for a line of a MifScanner.
const char *ReadNumber(const char *at, const char *last, char separator, double &value) {
  const char *end = ReadPlainNumber(at, separator, value);
  if (end != nullptr && end <= last && (end == last || *end == ' ')) return end;
  return ReadFloat(at, last, separator, value);
}

/// Whether the line is the word Point and two numbers with nothing but blanks around: so are nearly all points, and
/// they need not be cut into items.
bool ReadPlainPoint(std::string_view line, char separator, TMapPoint &point) {
  const char *at = line.data();
  const char *last = at + line.size();
  const auto skipBlanks = [&] {
    const char *first = at;
    while (at != last && *at == ' ') ++at;
    return at != first;
  };
  skipBlanks();
  for (const char letter : PlainPointWord) {
    if (at == last || UpperAscii(*at) != letter) return false;
    ++at;
  }
  if (!skipBlanks()) return false;
  at = ReadNumber(at, last, separator, point.X);
  if (at == nullptr || !skipBlanks()) return false;
  at = ReadNumber(at, last, separator, point.Y);
  if (at == nullptr) return false;
  skipBlanks();
  return at == last;
}

bool IsLetter(char c) {
  return UpperAscii(c) >= 'A' && UpperAscii(c) <= 'Z';
}

}  // namespace

/// The kinds of objects that are read, in the order in which a line is searched for their keywords.
struct KindReaders {
  struct Entry {
    std::string_view keyword;
    const char *name;
    TMapObjectClass create;
    void (MifReader::*read)(TCustomMapObject &object, std::string_view line, std::string_view rest);
  };
  static constexpr std::array InOrder{
      Entry{"REGION", "Region", CreateMapObject<TRegion>, &MifReader::ReadRegion},
      Entry{"PLINE", "Pline", CreateMapObject<TPolyline>, &MifReader::ReadPline},
      Entry{"POINT", "Point", CreateMapObject<TSymbol>, &MifReader::ReadPoint},
  };
  static constexpr std::size_t PointIndex = 2;  // of the kind that ReadPlainPoint knows
};

namespace {

constexpr std::size_t Delimiter = 0;
constexpr std::size_t Columns = 1;
constexpr std::size_t FirstKind = 2;
constexpr std::size_t KindCount = KindReaders::InOrder.size();
static_assert(KindReaders::InOrder[KindReaders::PointIndex].keyword == PlainPointWord);

/// Those of the header, then those of the kinds.
constexpr KeywordSet<FirstKind + KindCount> Keywords([] {
  std::array<std::string_view, FirstKind + KindCount> words{"DELIMITER", "COLUMNS"};
  for (std::size_t kind = 0; kind < KindCount; ++kind) words[FirstKind + kind] = KindReaders::InOrder[kind].keyword;
  return words;
}());

}  // namespace

MifReader::MifReader(TMapLayer &layer, ByteSource &mif, ByteSource *mid, TFormatReport &report,
                     const LookAheadLimits &limits)
    : m_layer(layer),
      m_watchedLayer(&layer),
      m_map(*layer.GetMapHost()),
      m_mif(mif, DecimalSeparator(), MifScanner::DefaultWindow, limits),
      m_mid(mid, limits),
      m_report(report),
      m_size(mif.GetSize()),
      m_emptyPartsLeft(MaxEmptyParts + m_size / EmptyPartBytes),
      m_counts(KindCount) {
  m_mid.SetColumns(layer.GetFields());
}

int MifReader::ProgressPosition(qint64 position, qint64 size) {
  return int(position / (size / std::numeric_limits<int>::max() + 1));
}

void MifReader::Read() {
  CheckLayer();
  std::string_view line = m_mif.ReadLine();
  while (!m_mif.AtEnd()) {
    ShowProgress();
    line = ReadLine(line);
  }
  Skip(line);
  m_mif.GetSource().ThrowIfFailed();
  m_mid.ThrowIfFailed();
}

void MifReader::ShowProgress() {
  if (m_mif.GetPosition() < m_nextProgress) return;
  m_nextProgress = m_mif.GetPosition() + m_size / ProgressSteps;
  m_map.ShowProgress(ProgressPosition(m_mif.GetPosition(), m_size));
  CheckLayer();
}

void MifReader::CheckLayer() const {
  if (!m_watchedLayer) throw EInOutError(TFormatReport::tr("the layer was deleted while it was being loaded"));
}

std::string_view MifReader::ReadLine(std::string_view line) {
  if (m_nextIsPlainPoint) {
    m_nextIsPlainPoint = false;
    auto &symbol = static_cast<TSymbol &>(NewObject(KindReaders::PointIndex));
    m_mid.ReadValues(symbol.GetFields());
    symbol.MoveTo(m_plainPoint.X, m_plainPoint.Y);
    return ReadClauses(symbol);
  }
  const auto places = Keywords.Find(line);
  const auto has = [&places](std::size_t word) { return places[word] != std::string_view::npos; };
  const auto after = [&](std::size_t word) { return TrimBytes(Keywords.After(line, word, places[word])); };

  if (has(Delimiter)) m_mid.SetDelimiter(WithoutQuotes(after(Delimiter)));
  if (has(Columns)) {
    // Reading further ends the life of the line.
    line = m_headerLine = line;
    ReadColumns(after(Columns));
  }
  // Of several kinds in one line each gets its object, but only the last is read.
  TCustomMapObject *object = nullptr;
  std::size_t kind = 0;
  for (std::size_t candidate = 0; candidate < KindCount; ++candidate) {
    if (!has(FirstKind + candidate)) continue;
    kind = candidate;
    object = &NewObject(kind);
  }
  if (object == nullptr) {
    if (!has(Delimiter) && !has(Columns)) Skip(line);
    return m_mif.ReadLine();
  }
  m_mid.ReadValues(object->GetFields());
  (this->*KindReaders::InOrder[kind].read)(*object, line, after(FirstKind + kind));
  return ReadClauses(*object);
}

TCustomMapObject &MifReader::NewObject(std::size_t kind) {
  ++m_counts[kind];
  TCustomMapObject *object = m_layer.NewObject(KindReaders::InOrder[kind].create);
  CheckLayer();
  if (object == nullptr) throw EInOutError(TFormatReport::tr("an object was deleted while it was being loaded"));
  return *object;
}

void MifReader::ReadColumns(std::string_view countText) {
  TDataFields &fields = m_layer.GetFields();
  fields.Clear();
  const int count = BytesToInt(countText);
  if (count > MaxColumns) throw EConvertError(TFormatReport::tr("%1 columns are too many").arg(count));
  for (int i = 0; i < count && !m_mif.AtEnd(); ++i) {
    const std::string_view line = TrimBytes(m_mif.ReadLine());
    const std::size_t nameEnd = std::min(line.find_first_of(" \t"), line.size());
    // Inserted, since an added text column without a width would get one.
    const TDataType type = ColumnType(line.substr(nameEnd));
    fields.Insert(i, DecodeWindows1251(line.substr(0, nameEnd)), type, 0);
    if (const char *loss = LossOf(type, line.substr(nameEnd))) m_report.Lose(TFormatReport::tr(loss));
  }
  m_mid.SetColumns(fields);
}

void MifReader::ReadRegion(TCustomMapObject &object, std::string_view /*line*/, std::string_view rest) {
  const int partCount = BytesToInt(rest);
  for (int i = 0; i < partCount; ++i) {
    int count = 0;
    if (!m_mif.ReadCount(count)) return WarnInLine(TFormatReport::tr("the file ends within a Region"));
    ReadPart(object.GetParts(), count);
  }
}

void MifReader::ReadPline(TCustomMapObject &object, std::string_view line, std::string_view /*rest*/) {
  m_items.Read(line);
  const std::string_view first = m_items.At(1);
  constexpr KeywordSet<1> Multiple({"MULTIPLE"});
  const bool isMultiple = first.size() == 8 && Multiple.FindLast(first) == 0;
  const int sections = isMultiple ? m_items.IntegerAt(2) : 1;
  int count = 0;
  if (!isMultiple) {
    count = m_items.IntegerAt(1);
  } else if (!m_mif.ReadCount(count)) {
    return WarnInLine(TFormatReport::tr("the file ends within a Pline"));
  }
  // The number of points of the first section stands for all; the counts of further ones are read as vertices.
  for (int i = 0; i < sections; ++i) {
    if (i == 1 && m_mif.LineHoldsOneItem()) {
      WarnInLine(TFormatReport::tr("only the first section of a Pline Multiple is read as it is meant"));
    }
    ReadPart(object.GetParts(), count);
  }
}

void MifReader::ReadPart(TParts &parts, int count) {
  if ((count <= 0 || m_mif.AtEnd()) && --m_emptyPartsLeft < 0) {
    throw EConvertError(TFormatReport::tr("there are too many parts without points"));
  }
  TPart &part = parts.Add();
  TMapPoints &points = part.GetPoints();
  const std::size_t wanted = std::min(std::size_t(std::max(count, 0)), m_mif.MostVertices());
  std::size_t done = 0;
  points.AppendInPlace(wanted, [&](TMapPoint *first, TBounds &bounds) {
    done = m_mif.ReadVertices(first, wanted);
    for (const TMapPoint &point : std::span(first, done)) bounds.Widen(point.X, point.Y);
    return done;
  });
  if (done < wanted) part.SetPoints(points.Clone());  // gives back the room
  m_mif.ThrowIfMalformed();
  if (done < wanted) {
    WarnInLine(TFormatReport::tr("%1 points are announced, but the file ends after %2").arg(count).arg(done));
  }
}

void MifReader::ReadPoint(TCustomMapObject &object, std::string_view line, std::string_view /*rest*/) {
  // The decimal separator does not end an item here, even if it is a comma.
  m_items.Read(line, m_mif.GetSeparator());
  const double x = m_items.FloatAt(1, m_mif.GetSeparator());
  const double y = m_items.FloatAt(2, m_mif.GetSeparator());
  static_cast<TSymbol &>(object).MoveTo(x, y);
}

std::string_view MifReader::ReadClauses(TCustomMapObject &object) {
  std::string_view line;
  do {
    line = m_mif.ReadLine();
    m_nextIsPlainPoint = ReadPlainPoint(line, m_mif.GetSeparator(), m_plainPoint);
  } while (!m_nextIsPlainPoint && m_styles.Apply(line, object));
  return line;
}

void MifReader::WarnInLine(const QString &words) {
  m_report.Lose(TFormatReport::tr("shapes that are not read as they stand"));
  if (m_report.warnings.size() < TFormatReport::MaxWarnings) {
    m_report.Warn(TFormatReport::tr("line %1: %2").arg(m_mif.GetLine()).arg(words));
  } else {
    ++m_report.droppedWarnings;
  }
}

void MifReader::Skip(std::string_view line) {
  constexpr std::size_t LongestWord = 32;
  const std::string_view text = TrimBytes(line);
  if (text.empty()) return;
  const auto *wordEnd = std::find_if_not(text.begin(), text.end(), IsLetter);
  const auto length = std::min(std::size_t(wordEnd - text.begin()), LongestWord);
  std::string_view word = text.substr(0, length);
  if (IsWrittenAgain(text, word)) return;
  const auto known = m_skipped.find(word);
  const bool isNew = known == m_skipped.end();
  ++(isNew ? m_skipped[m_skipped.size() < TFormatReport::MaxKeywords ? std::string(word) : std::string()]
           : known->second);
}

void MifReader::FinishReport() {
  for (std::size_t kind = 0; kind < KindCount; ++kind) {
    m_report.CountObject(QString::fromLatin1(KindReaders::InOrder[kind].name), m_counts[kind]);
  }
  for (const auto &[word, count] : m_skipped) m_report.CountSkippedLine(NameOf(word), count);
  if (!m_mid.HasFile() && m_mid.HasColumns()) {
    m_report.Warn(TFormatReport::tr("there is no data file, so the objects have no values"));
  }
  if (m_mid.GetMissingLines() > 0) {
    m_report.Warn(
        TFormatReport::tr("objects at the end that the data file has no line for: %1").arg(m_mid.GetMissingLines()));
  }
  if (m_report.ok() && m_mid.HasMore()) {
    m_report.Warn(TFormatReport::tr(
        "the data file has more lines than objects were read, so values may stand with the wrong objects"));
    m_report.Lose(TFormatReport::tr("lines of the data file beyond those of the objects"));
  }
  ReportLosses();
}

void MifReader::ReportLosses() {
  QStringList lines;
  for (const auto &[word, count] : m_skipped) lines.append(QString::number(count) + u' ' + NameOf(word));
  if (!lines.isEmpty())
    m_report.Lose(TFormatReport::tr("lines that are not read: ") + lines.join(QStringLiteral(", ")));
  for (const QString &words : m_styles.GetLosses()) m_report.Lose(words);
}

}  // namespace tessera::detail
