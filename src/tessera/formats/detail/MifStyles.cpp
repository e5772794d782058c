// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MifStyles.h>
#include <tessera/formats/detail/MifText.h>
#include <tessera/objects/TSymbol.h>

#include <algorithm>
#include <cstring>

namespace tessera::detail {
namespace {

constexpr KeywordSet<5> ClauseKeywords({"PEN", "BRUSH", "CENTER", "FONT", "SYMBOL"});

/// Clauses that are kept, a power of two, and where each may stand: in its own place or the next ones.
constexpr std::size_t KnownCount = 4096;
constexpr std::size_t ProbeCount = 4;
constexpr std::size_t LongestKnown = 200;

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
  const TObjectStylePtr before = object.GetStyle();
  const bool isKept = line.size() <= LongestKnown;
  const std::size_t home = isKept ? HashOf(line, before.constData()) : 0;
  const auto apply = [&object](const Known &clause) {
    object.SetStyle(clause.after);
    if (clause.shape == NoShapeGiven) return;
    if (auto *symbol = dynamic_cast<TSymbol *>(&object)) symbol->SetShape(clause.shape);
  };
  const Known *known = isKept && !line.empty() ? Find(line, before.constData(), home) : nullptr;
  if (known != nullptr) {
    apply(*known);
    return true;
  }
  const TObjectAttribute attribute = ClassifyClause(line);
  if (attribute == TObjectAttribute::oaNone) return false;
  // Clauses that say nothing would only take the room of the others: no two centres are the same.
  if (attribute == TObjectAttribute::oaCenter || attribute == TObjectAttribute::oaFont) return true;
  Known clause = Read(attribute, line, before);
  apply(clause);
  if (isKept) Keep(std::move(clause), home);
  return true;
}

MifStyles::Known MifStyles::Read(TObjectAttribute attribute, std::string_view line, const TObjectStylePtr &before) {
  Known clause{.line = std::string(line), .before = before, .after = before};
  m_items.Read(line);
  switch (attribute) {
    case TObjectAttribute::oaPen:
      clause.after->pen.SetColor(ColorFromMif(m_items.IntegerAt(3)));
      break;
    case TObjectAttribute::oaBrush:
      clause.after->brush.SetColor(ColorFromMif(m_items.IntegerAt(2)));
      break;
    case TObjectAttribute::oaSymbol: {
      // A shape below the least one is raised to it, so that none of them is NoShapeGiven.
      clause.shape = std::max(m_items.IntegerAt(1), TSymbol::NoShape);
      TFont font = before->font;
      font.SetColor(ColorFromMif(m_items.IntegerAt(2)));
      font.SetSize(m_items.IntegerAt(3));
      font.SetName(FontName(m_items));
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
