// SPDX-License-Identifier: MIT
#include <tessera/base/detail/Numbers.h>
#include <tessera/formats/detail/WorkspaceText.h>

#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cmath>

namespace tessera::detail {
namespace {

constexpr qsizetype None = -1;

QString Keyword(const char *word) {
  return QString::fromLatin1(word);
}

/// The character set by the name that MapInfo gives it.
const char *EncodingOf(const QByteArray &bytes) {
  constexpr std::pair<const char *, const char *> Charsets[] = {
      {"windowscyrillic", "windows-1251"}, {"windowslatin2", "windows-1250"},
      {"windowsgreek", "windows-1253"},    {"windowsturkish", "windows-1254"},
      {"windowshebrew", "windows-1255"},   {"windowsarabic", "windows-1256"},
      {"windowsbaltic", "windows-1257"},   {"utf-8", "UTF-8"},
      {"codepage866", "IBM866"},           {"codepage437", "IBM437"},
      {"codepage850", "IBM850"},           {"codepage852", "IBM852"}};
  constexpr qsizetype HeaderSize = 1000;
  const QByteArray header = bytes.left(HeaderSize).toLower();
  const qsizetype at = header.indexOf("!charset");
  if (at != None) {
    const QByteArray line = header.mid(at, header.indexOf('\n', at) - at);
    for (const auto &[name, encoding] : Charsets) {
      if (line.contains(name)) return encoding;
    }
  }
  return "windows-1252";
}

QString Decoded(const QByteArray &bytes) {
  QStringDecoder decoder(EncodingOf(bytes));
  return decoder.isValid() ? QString(decoder.decode(bytes)) : QString::fromLatin1(bytes);
}

/// Blanks and ends of lines.
bool IsBlank(QChar character) {
  return character.isSpace();
}

TColor ColorOf(int value) {
  constexpr int Most = 255;
  const int red = std::min(Most, value / 65536);
  const int green = std::min(Most, value % 65536 / 256);
  const int blue = std::min(Most, value % 256);
  return TColor(red + green * 256 + blue * 65536);
}

TBrushStyle BrushStyleOf(int pattern) {
  constexpr std::array Styles{TBrushStyle::bsClear,    TBrushStyle::bsSolid,     TBrushStyle::bsHorizontal,
                              TBrushStyle::bsVertical, TBrushStyle::bsBDiagonal, TBrushStyle::bsFDiagonal,
                              TBrushStyle::bsCross,    TBrushStyle::bsDiagCross};
  return pattern >= 1 && pattern <= int(Styles.size()) ? Styles[std::size_t(pattern - 1)] : TBrushStyle::bsSolid;
}

TPenStyle PenStyleOf(int pattern) {
  switch (pattern) {
    case 1:
      return TPenStyle::psClear;
    case 9:
      return TPenStyle::psDot;
    case 12:
      return TPenStyle::psDash;
    case 14:
      return TPenStyle::psDashDot;
    case 20:
      return TPenStyle::psDashDotDot;
    default:
      return TPenStyle::psSolid;
  }
}

/// Widths above 7 are in points; the upper bound of 1 that they get is intended.
int PenWidthOf(int width) {
  constexpr int WidestInPixels = 7;
  constexpr double PartsOfAPoint = 20;
  return width > WidestInPixels ? std::min(int(std::nearbyint(width / PartsOfAPoint)), 1) : width;
}

/// The style bits of MapInfo's font clause.
TFontStyles FontStylesOf(int bits) {
  TFontStyles styles;
  styles.setFlag(TFontStyle::fsBold, (bits & 1) != 0);
  styles.setFlag(TFontStyle::fsItalic, (bits & 2) != 0);
  styles.setFlag(TFontStyle::fsUnderline, (bits & 4) != 0);
  styles.setFlag(TFontStyle::fsStrikeOut, (bits & 8) != 0);
  return styles;
}

int RoundedNumber(const QString &text) {
  constexpr double Most = 1e9;
  return int(std::nearbyint(std::clamp(StrToFloat(text.trimmed()), -Most, Most)));
}

}  // namespace

WorkspaceText::WorkspaceText(const QByteArray &bytes) : m_text(Decoded(bytes)), m_lower(m_text.toLower()) {
  // A letter that becomes longer in lower case would shift all places behind it.
  if (m_lower.size() == m_text.size()) return;
  m_lower = m_text;
  for (QChar &character : m_lower) character = character.toLower();
}

const WorkspaceText::Places &WorkspaceText::PlacesOf(const QString &keyword) const {
  const auto [found, isNew] = m_places.try_emplace(keyword);
  if (isNew) {
    for (qsizetype at = m_lower.indexOf(keyword); at != None; at = m_lower.indexOf(keyword, at + 1)) {
      found->second.push_back(at);
    }
  }
  return found->second;
}

qsizetype WorkspaceText::EndAfter(const QString &keyword, qsizetype from) const {
  if (from < 0) return None;
  const Places &places = PlacesOf(keyword);
  const auto next = std::lower_bound(places.begin(), places.end(), from);
  return next == places.end() ? None : *next + keyword.size();
}

qsizetype WorkspaceText::EndOfLayer(int layer) const {
  if (m_layers.empty()) {
    const qsizetype map = EndAfter(Keyword("set map"), 0);
    static const QRegularExpression numbered(QStringLiteral("layer (\\d{1,9})(?!\\d)"));
    auto matches = numbered.globalMatch(m_lower, std::max<qsizetype>(map, 0));
    while (map != None && matches.hasNext()) {
      const auto match = matches.next();
      m_layers.emplace(match.captured(1).toInt(), match.capturedEnd());
    }
    m_layers.emplace(None, None);
  }
  const auto found = m_layers.find(layer);
  return found == m_layers.end() ? None : found->second;
}

std::vector<WorkspaceTable> WorkspaceText::OpenedTables() const {
  const QString command = Keyword("open table \"");
  const QString closing = Keyword("\" as");
  constexpr int FromQuoteToAlias = 5;
  std::vector<WorkspaceTable> tables;
  for (const qsizetype at : PlacesOf(command)) {
    const qsizetype first = at + command.size();
    const qsizetype lineEnd = m_lower.indexOf(u'\n', first);
    const qsizetype quote = m_lower.indexOf(closing, first);
    if (quote == None || (lineEnd != None && quote > lineEnd)) continue;
    const qsizetype alias = quote + FromQuoteToAlias;
    const auto *end = std::find_if(m_text.cbegin() + std::min(alias, m_text.size()), m_text.cend(), IsBlank);
    tables.push_back({m_text.mid(first, quote - first), m_text.mid(alias, end - m_text.cbegin() - alias)});
  }
  return tables;
}

QStringList WorkspaceText::ShownAliases() const {
  qsizetype at = EndAfter(Keyword("map from "), 0);
  QStringList aliases;
  // Names with commas between them, which may stand on several lines.
  while (at != None && at < m_text.size()) {
    while (at < m_text.size() && IsBlank(m_text[at])) ++at;
    const qsizetype first = at;
    while (at < m_text.size() && !IsBlank(m_text[at]) && m_text[at] != u',') ++at;
    aliases.append(m_text.mid(first, at - first).remove(u'"'));
    while (at < m_text.size() && IsBlank(m_text[at])) ++at;
    if (at >= m_text.size() || m_text[at] != u',') break;
    ++at;
  }
  return aliases;
}

std::vector<WorkspaceTable> WorkspaceText::Tables() const {
  const std::vector<WorkspaceTable> opened = OpenedTables();
  std::map<QString, const WorkspaceTable *> byAlias;
  for (const WorkspaceTable &table : opened) byAlias.emplace(table.alias.toLower(), &table);
  std::vector<WorkspaceTable> shown;
  for (const QString &alias : ShownAliases()) {
    const auto found = byAlias.find(alias.toLower());
    if (found != byAlias.end()) shown.push_back(*found->second);
  }
  return shown.empty() ? opened : shown;
}

std::optional<int> WorkspaceText::EditableLayer() const {
  const QString editable = Keyword("editable");
  const qsizetype first = EndAfter(Keyword("set map layer"), 0);
  const qsizetype end = EndAfter(editable, first);
  if (end == None) return std::nullopt;
  return StrToInt(QStringView(m_text).mid(first, end - editable.size() - first).trimmed());
}

std::optional<QString> WorkspaceText::ArgumentsAfter(const QString &keyword, qsizetype from) const {
  const qsizetype end = EndAfter(keyword, from);
  const qsizetype open = end == None ? None : m_text.indexOf(u'(', end);
  const qsizetype close = open == None ? None : m_text.indexOf(u')', open);
  return close == None ? std::nullopt : std::optional(m_text.mid(open + 1, close - open - 1));
}

std::optional<TMapPoint> WorkspaceText::Center() const {
  const auto pair = ArgumentsAfter(Keyword("center"), EndAfter(Keyword("set map"), 0));
  if (!pair) return std::nullopt;
  const qsizetype comma = pair->indexOf(u',');
  return TMapPoint{StrToFloat(QStringView(*pair).left(std::max<qsizetype>(comma, 0))),
                   StrToFloat(QStringView(*pair).mid(comma + 1))};
}

QString WorkspaceText::WordAfter(const QString &keyword, int layer) const {
  const qsizetype end = EndAfter(keyword, EndOfLayer(layer));
  if (end == None) return {};
  const auto *first = std::find_if_not(m_lower.cbegin() + end, m_lower.cend(), IsBlank);
  return QString(first, std::find_if(first, m_lower.cend(), IsBlank) - first);
}

WorkspaceDisplay WorkspaceText::DisplayOf(int layer) const {
  const QString word = WordAfter(Keyword("display"), layer);
  if (word == QLatin1String("global")) return WorkspaceDisplay::Global;
  return word == QLatin1String("off") ? WorkspaceDisplay::Off : WorkspaceDisplay::Usual;
}

bool WorkspaceText::IsAutoLabelled(int layer) const {
  return WordAfter(Keyword("auto"), layer) == QLatin1String("on");
}

std::optional<std::vector<int>> WorkspaceText::NumbersOf(const QString &clause, int layer) const {
  const auto arguments = ArgumentsAfter(clause, EndOfLayer(layer));
  if (!arguments) return std::nullopt;
  constexpr int MostNumbers = 3;
  std::vector<int> numbers;
  const QStringList parts = arguments->split(u',');
  for (const QString &part : parts.mid(0, MostNumbers)) numbers.push_back(RoundedNumber(part));
  numbers.resize(MostNumbers);
  return numbers;
}

std::optional<TBrush> WorkspaceText::BrushOf(int layer) const {
  const auto numbers = NumbersOf(Keyword("brush"), layer);
  if (!numbers) return std::nullopt;
  TBrush brush;
  brush.SetColor(ColorOf((*numbers)[1]));
  brush.SetStyle(BrushStyleOf((*numbers)[0]));
  return brush;
}

std::optional<TPen> WorkspaceText::PenOf(int layer) const {
  const auto numbers = NumbersOf(Keyword("pen"), layer);
  if (!numbers) return std::nullopt;
  TPen pen;
  pen.SetWidth(PenWidthOf((*numbers)[0]));
  pen.SetStyle(PenStyleOf((*numbers)[1]));
  pen.SetColor(ColorOf((*numbers)[2]));
  return pen;
}

std::optional<TFont> WorkspaceText::FontOf(int layer) const {
  const auto arguments = ArgumentsAfter(Keyword("font"), EndOfLayer(layer));
  if (!arguments) return std::nullopt;
  enum { Name, Style, Size, Color, Count };
  const QStringList parts = arguments->split(u',');
  if (parts.size() < Count) return std::nullopt;
  TFont font(parts[Name].trimmed().remove(u'"'), RoundedNumber(parts[Size]), ColorOf(RoundedNumber(parts[Color])));
  font.SetStyle(FontStylesOf(RoundedNumber(parts[Style])));
  return font;
}

void WorkspaceText::ListStatements(TWorkspaceReport &report) const {
  constexpr qsizetype MostCharacters = 80;
  int line = 0;
  for (const QStringView text : QStringView(m_text).tokenize(u'\n')) {
    ++line;
    // What is indented belongs to the statement above; the header begins with marks of exclamation.
    if (text.trimmed().isEmpty() || IsBlank(text[0]) || text[0] == u'!') continue;
    const QString words = text.trimmed().left(MostCharacters).toString();
    const QString lower = words.toLower();
    const bool isHonoured = lower.startsWith(QLatin1String("open table")) ||
                            lower.startsWith(QLatin1String("map from")) || lower.startsWith(QLatin1String("set map"));
    (isHonoured ? report.honoured : report.skipped).push_back({line, words});
  }
}

}  // namespace tessera::detail
