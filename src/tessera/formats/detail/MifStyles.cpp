// SPDX-License-Identifier: MIT
#include <tessera/base/detail/Numbers.h>
#include <tessera/formats/detail/MifStyles.h>
#include <tessera/formats/detail/MifText.h>
#include <tessera/objects/TSymbol.h>
#include <tessera/providers/TFormatReport.h>

#include <algorithm>
#include <cstring>
#include <typeinfo>

namespace tessera::detail {
namespace {

constexpr KeywordSet<5> ClauseKeywords({"PEN", "BRUSH", "CENTER", "FONT", "SYMBOL"});

/// Clauses that are kept, a power of two, and where each may stand: in its own place or the next ones.
constexpr std::size_t KnownCount = 4096;
constexpr std::size_t ProbeCount = 4;
constexpr std::size_t LongestKnown = 200;

/// Items of a Brush clause that has no background colour.
constexpr int FirstWithoutBack = 3;

std::size_t HashOf(std::string_view line, const TObjectStyle *before) {
  constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15U;
  std::uint64_t hash = reinterpret_cast<std::uintptr_t>(before) ^ line.size();
  const auto mix = [&hash](std::uint64_t word) {
    hash = (hash ^ word) * Factor;
    hash ^= hash >> 32U;
  };
  for (; line.size() >= sizeof(std::uint64_t); line.remove_prefix(sizeof(std::uint64_t))) {
    std::uint64_t word = 0;
    std::memcpy(&word, line.data(), sizeof word);
    mix(word);
  }
  std::uint64_t rest = 0;
  if (!line.empty()) std::memcpy(&rest, line.data(), line.size());
  mix(rest);
  return std::size_t(hash);
}

QString FontName(const MifItems &items) {
  constexpr int FirstWithoutName = 5;
  if (items.GetCount() <= FirstWithoutName) return QStringLiteral("MapInfo Symbol");
  const QString quoted = DecodeWindows1251(items.At(4));
  return quoted.mid(1, std::max<qsizetype>(quoted.size() - 2, 0));
}

}  // namespace

TObjectAttribute ClassifyClause(std::string_view line) {
  return TObjectAttribute(ClauseKeywords.FindLast(line) + 1);
}

TColor ColorFromMif(int mifColor) {
  const auto channel = [](int value) { return unsigned(std::min(value, 255)); };
  const int rest = mifColor % 65536;
  return RGB(channel(mifColor / 65536), channel(rest / 256), channel(rest % 256));
}

int ColorToMif(TColor color) {
  return int(RedOf(color) * 65536 + GreenOf(color) * 256 + BlueOf(color));
}

int FillPattern(TBrushStyle style) {
  switch (style) {
    case TBrushStyle::bsClear:
      return 1;
    case TBrushStyle::bsHorizontal:
      return 3;
    case TBrushStyle::bsVertical:
      return 4;
    case TBrushStyle::bsBDiagonal:
      return 5;
    case TBrushStyle::bsFDiagonal:
      return 6;
    case TBrushStyle::bsCross:
      return 7;
    case TBrushStyle::bsDiagCross:
      return 8;
    case TBrushStyle::bsSolid:
      break;
  }
  return 2;
}

int LinePattern(TPenStyle style) {
  switch (style) {
    case TPenStyle::psClear:
      return 1;
    case TPenStyle::psDot:
      return 9;
    case TPenStyle::psDash:
      return 12;
    case TPenStyle::psDashDot:
      return 14;
    case TPenStyle::psDashDotDot:
      return 20;
    case TPenStyle::psSolid:
    case TPenStyle::psInsideFrame:
      break;
  }
  return 2;
}

int FontStyleNumber(TFontStyles style) {
  return (style.testFlag(TFontStyle::fsBold) ? 1 : 0) + (style.testFlag(TFontStyle::fsItalic) ? 2 : 0) +
         (style.testFlag(TFontStyle::fsUnderline) ? 4 : 0);
}

MifStyles::MifStyles() : m_known(KnownCount) {}

const MifStyles::Known *MifStyles::Find(std::string_view line, const TObjectStyle *before, std::size_t home) const {
  for (std::size_t i = 0; i < ProbeCount; ++i) {
    const Known &known = m_known[(home + i) % KnownCount];
    if (known.before.constData() == before && known.line == line) return &known;
  }
  return nullptr;
}

void MifStyles::Keep(Known clause, std::size_t home) {
  for (std::size_t i = 0; i < ProbeCount; ++i) {
    Known &place = m_known[(home + i) % KnownCount];
    if (!place.line.empty()) continue;
    place = std::move(clause);
    return;
  }
  m_known[home % KnownCount] = std::move(clause);
}

bool MifStyles::Apply(std::string_view line, TCustomMapObject &object) {
  const TObjectStyle *style = object.GetStyle().constData();
  const bool isKept = line.size() <= LongestKnown;
  const std::size_t home = isKept ? HashOf(line, style) : 0;
  const auto apply = [&object](const Known &clause) {
    object.SetStyle(clause.after);
    if (clause.shape == NoShapeGiven) return;
    if (typeid(object) == typeid(TSymbol)) static_cast<TSymbol &>(object).SetShape(clause.shape);
  };
  const Known *known = isKept && !line.empty() ? Find(line, style, home) : nullptr;
  if (known != nullptr) {
    apply(*known);
    return true;
  }
  const TObjectAttribute attribute = ClassifyClause(line);
  if (attribute == TObjectAttribute::oaNone) return false;
  // Clauses that say nothing would only take the room of the others: no two centres are the same.
  if (attribute == TObjectAttribute::oaCenter || attribute == TObjectAttribute::oaFont) {
    m_hasLostCenters = m_hasLostCenters || attribute == TObjectAttribute::oaCenter;
    return true;
  }
  Known clause = Read(attribute, line, object.GetStyle());
  apply(clause);
  if (isKept) Keep(std::move(clause), home);
  return true;
}

bool MifStyles::Differs(int index, int number) const {
  int found = 0;
  const std::string_view item = index < m_items.GetCount() ? m_items.At(index) : std::string_view();
  const char *end = item.data() + item.size();
  return !item.empty() && (ReadInt(item.data(), end, found) != end || found != number);
}

QStringList MifStyles::GetLosses() const {
  QStringList losses;
  if (m_hasLostPens) losses.append(TFormatReport::tr("widths and patterns of pens"));
  if (m_hasLostBrushes) losses.append(TFormatReport::tr("patterns and background colours of brushes"));
  if (m_hasLostSymbols) losses.append(TFormatReport::tr("styles and angles of symbols"));
  if (m_hasLostCenters) losses.append(TFormatReport::tr("centres of regions"));
  return losses;
}

MifStyles::Known MifStyles::Read(TObjectAttribute attribute, std::string_view line, const TObjectStylePtr &before) {
  Known clause{.line = std::string(line), .before = before, .after = before};
  m_items.Read(line);
  switch (attribute) {
    case TObjectAttribute::oaPen:
      m_hasLostPens |= Differs(1, before->pen.GetWidth()) || Differs(2, LinePattern(before->pen.GetStyle()));
      clause.after->pen.SetColor(ColorFromMif(m_items.IntegerAt(3)));
      break;
    case TObjectAttribute::oaBrush:
      m_hasLostBrushes |= Differs(1, FillPattern(before->brush.GetStyle())) || m_items.GetCount() > FirstWithoutBack;
      clause.after->brush.SetColor(ColorFromMif(m_items.IntegerAt(2)));
      break;
    case TObjectAttribute::oaSymbol: {
      // A shape below the least one is raised to it, so that none of them is NoShapeGiven.
      clause.shape = std::max(m_items.IntegerAt(1), TSymbol::NoShape);
      TFont font = before->font;
      font.SetColor(ColorFromMif(m_items.IntegerAt(2)));
      font.SetSize(m_items.IntegerAt(3));
      font.SetName(FontName(m_items));
      m_hasLostSymbols |= Differs(5, FontStyleNumber(font.GetStyle())) || Differs(6, 0);
      clause.after->font = font;
      break;
    }
    case TObjectAttribute::oaCenter:
    case TObjectAttribute::oaFont:
    case TObjectAttribute::oaNone:
      break;
  }
  return clause;
}

}  // namespace tessera::detail
