// SPDX-License-Identifier: MIT
#include "MapFile.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tessera::mitab {
namespace {

constexpr std::size_t ObjectBlockHeader = 20;
constexpr std::size_t CoordinateBlockHeader = 8;
/// What kinds of blocks are called.
constexpr int ObjectBlock = 2;
constexpr int CoordinateBlock = 3;
/// The bytes of an object's type and number.
constexpr std::size_t BeforeShape = 5;
constexpr std::size_t MostTools = 2;

/// Wraps, where a file is damaged.
std::int32_t Sum(std::int32_t one, std::int32_t other) {
  return std::int32_t(std::uint32_t(one) + std::uint32_t(other));
}

}  // namespace

/// How a type of objects is kept: first its type and its number.
struct MapFile::Form {
  Kind kind;
  std::uint8_t type;
  std::uint8_t size;     ///< Of what stands between the number and the tools.
  bool isCompressed;     ///< Coordinates are of 16 bits, counted from a point nearby.
  bool hasSections;      ///< The vertices stand behind a list of sections.
  bool hasLongSections;  ///< Their numbers of vertices are of 32 bits.
};

/// Reads from the chain of blocks in which vertices lie.
class MapFile::Coordinates {
 public:
  Coordinates(const MapFile &file, std::size_t at) : m_file(file), m_at(at) {
    m_isGood = EnterBlock(at - at % file.m_blockSize) && m_at >= m_block + CoordinateBlockHeader && m_at <= m_end;
    if (!m_isGood) m_at = m_end = 0;
  }

  /// What compressed coordinates are counted from.
  void SetOrigin(std::int32_t x, std::int32_t y) {
    m_originX = x;
    m_originY = y;
  }
  /// False once anything was not there.
  [[nodiscard]] bool IsGood() const { return m_isGood; }

  template <typename Number>
  [[nodiscard]] Number Read() {
    if (m_end - m_at >= sizeof(Number)) {
      const auto number = NumberIn<Number>(m_file.m_map, m_at);
      m_at += sizeof(Number);
      return number;
    }
    std::array<std::uint8_t, sizeof(Number)> bytes;
    for (std::uint8_t &byte : bytes) byte = ReadByte();
    return NumberIn<Number>(bytes, 0);
  }
  [[nodiscard]] std::pair<std::int32_t, std::int32_t> ReadPoint(bool isCompressed) {
    if (!isCompressed) {
      const auto x = Read<std::int32_t>();
      return {x, Read<std::int32_t>()};
    }
    const auto x = Read<std::int16_t>();
    return {Sum(m_originX, x), Sum(m_originY, Read<std::int16_t>())};
  }

 private:
  bool EnterBlock(std::size_t block) {
    constexpr std::size_t SizeAt = 2;
    const Bytes &map = m_file.m_map;
    if (block == 0 || block % m_file.m_blockSize != 0 || block + m_file.m_blockSize > map.size()) return false;
    const std::size_t size = NumberIn<std::uint16_t>(map, block + SizeAt);
    if (NumberIn<std::int16_t>(map, block) != CoordinateBlock) return false;
    if (size > m_file.m_blockSize - CoordinateBlockHeader) return false;
    m_block = block;
    m_end = block + CoordinateBlockHeader + size;
    return true;
  }
  std::uint8_t ReadByte() {
    constexpr std::size_t NextAt = 4;
    // A chain that comes back to itself ends as well: each of its bytes counts against what the caller expects.
    if (m_isGood && m_at == m_end) {
      m_isGood = EnterBlock(NumberIn<std::uint32_t>(m_file.m_map, m_block + NextAt)) &&
                 m_end > m_block + CoordinateBlockHeader;
      m_at = m_block + CoordinateBlockHeader;
    }
    return m_isGood ? m_file.m_map[m_at++] : 0;
  }

  const MapFile &m_file;
  std::size_t m_at;
  std::size_t m_block = 0;
  std::size_t m_end = 0;
  std::int32_t m_originX = 0, m_originY = 0;
  bool m_isGood = false;
};

std::unique_ptr<const MapFile> MapFile::Open(const std::string &tabName) {
  std::unique_ptr<MapFile> file(new MapFile);
  file->m_map = ReadCompanion(tabName, "map");
  file->m_ids = ReadCompanion(tabName, "id");
  return file->ReadHeader() ? std::move(file) : nullptr;
}

bool MapFile::ReadHeader() {
  constexpr std::size_t HeaderSize = 512;
  constexpr std::size_t MagicAt = 256;
  constexpr std::int32_t Magic = 42424242;
  constexpr std::size_t VersionAt = 260;
  constexpr int FirstVersion = 300;
  constexpr std::size_t BlockSizeAt = 262;
  constexpr std::size_t QuadrantAt = 353;
  constexpr std::size_t ScaleAt = 368;
  if (m_map.size() < HeaderSize || NumberIn<std::int32_t>(m_map, MagicAt) != Magic) return false;
  if (NumberIn<std::int16_t>(m_map, VersionAt) < FirstVersion) return false;
  m_blockSize = NumberIn<std::uint16_t>(m_map, BlockSizeAt);
  if (m_blockSize == 0 || m_blockSize % HeaderSize != 0) return false;
  // The quadrant in which coordinates are counted as positive; none is the third.
  const int quadrant = m_map[QuadrantAt];
  m_isXTurned = quadrant == 2 || quadrant == 3 || quadrant == 0;
  m_isYTurned = quadrant == 3 || quadrant == 4 || quadrant == 0;
  double *const numbers[] = {&m_scaleX, &m_scaleY, &m_shiftX, &m_shiftY};
  std::size_t at = ScaleAt;
  for (double *number : numbers) {
    *number = NumberIn<double>(m_map, at);
    at += sizeof *number;
    if (!std::isfinite(*number)) return false;
  }
  if (!(m_scaleX > 0) || !(m_scaleY > 0)) return false;
  m_precisionX = std::pow(10.0, std::round(std::log10(m_scaleX)));
  m_precisionY = std::pow(10.0, std::round(std::log10(m_scaleY)));
  return m_precisionX > 0 && m_precisionY > 0;
}

OGRRawPoint MapFile::PointOf(std::int32_t x, std::int32_t y) const {
  const double mapX = m_isXTurned ? -1.0 * (x + m_shiftX) / m_scaleX : (x - m_shiftX) / m_scaleX;
  const double mapY = m_isYTurned ? -1.0 * (y + m_shiftY) / m_scaleY : (y - m_shiftY) / m_scaleY;
  return {std::round(mapX * m_precisionX) / m_precisionX, std::round(mapY * m_precisionY) / m_precisionY};
}

std::optional<MapFile::Object> MapFile::Find(int id) const {
  using enum Kind;
  static constexpr Form Forms[] = {
      {Point, 0x01, 4, true, false, false},     {Point, 0x02, 8, false, false, false},
      {Polyline, 0x04, 8, true, false, false},  {Polyline, 0x05, 16, false, false, false},
      {Polyline, 0x07, 28, true, false, false}, {Polyline, 0x08, 32, false, false, false},
      {Region, 0x0d, 30, true, true, false},    {Region, 0x0e, 34, false, true, false},
      {Polyline, 0x25, 30, true, true, false},  {Polyline, 0x26, 34, false, true, false},
      {Region, 0x2e, 30, true, true, true},     {Region, 0x2f, 34, false, true, true},
      {Polyline, 0x31, 30, true, true, true},   {Polyline, 0x32, 34, false, true, true},
  };
  static constexpr Form Shapeless{NoGeometry, 0, 0, false, false, false};
  if (id < 1 || std::size_t(id) * sizeof(std::uint32_t) > m_ids.size()) return std::nullopt;
  const std::size_t at = NumberIn<std::uint32_t>(m_ids, std::size_t(id - 1) * sizeof(std::uint32_t));
  if (at == 0) return Object{&Shapeless, 0, 0};
  const std::size_t block = at - at % m_blockSize;
  if (block == 0 || block + m_blockSize > m_map.size() || at < block + ObjectBlockHeader) return std::nullopt;
  if (NumberIn<std::int16_t>(m_map, block) != ObjectBlock) return std::nullopt;
  const auto *form =
      std::find_if(std::begin(Forms), std::end(Forms), [&](const Form &each) { return each.type == m_map[at]; });
  if (form == std::end(Forms) || at + BeforeShape + form->size + MostTools > block + m_blockSize) return std::nullopt;
  if (NumberIn<std::int32_t>(m_map, at + 1) != id) return std::nullopt;
  // Regions have a brush behind the pen.
  constexpr unsigned Byte = 8;
  const std::size_t tools = at + BeforeShape + form->size;
  const std::uint32_t brush = form->kind == Region ? m_map[tools + 1] : 0;
  return Object{form, at + BeforeShape,
                std::uint32_t(form->kind) << 2 * Byte | std::uint32_t(m_map[tools]) << Byte | brush};
}

bool MapFile::ReadShape(const Object &object, Feature &feature) const {
  const Form &form = *object.form;
  feature.kind = form.kind;
  if (form.kind == Kind::NoGeometry) return true;
  constexpr std::size_t LargestLine = 16;
  if (form.size > LargestLine) return ReadChains(object, feature);
  feature.parts.resize(1);
  for (std::size_t at = 0; at < form.size; at += form.isCompressed ? 4 : 8) {
    feature.parts[0].points.push_back(PlaceAt(object.at + at, form.isCompressed));
  }
  return true;
}

OGRRawPoint MapFile::PlaceAt(std::size_t at, bool isCompressed) const {
  constexpr std::size_t CenterAt = 4;
  if (!isCompressed) return PointOf(NumberIn<std::int32_t>(m_map, at), NumberIn<std::int32_t>(m_map, at + 4));
  const std::size_t center = at - at % m_blockSize + CenterAt;
  return PointOf(Sum(NumberIn<std::int32_t>(m_map, center), NumberIn<std::int16_t>(m_map, at)),
                 Sum(NumberIn<std::int32_t>(m_map, center + 4), NumberIn<std::int16_t>(m_map, at + 2)));
}

bool MapFile::ReadChains(const Object &object, Feature &feature) const {
  const Form &form = *object.form;
  std::size_t at = object.at;
  Coordinates from(*this, NumberIn<std::uint32_t>(m_map, at));
  const std::size_t size = NumberIn<std::uint32_t>(m_map, at + 4) & 0x7fffffffU;  // the highest bit smoothes
  at += 8;
  const int sections = form.hasSections ? NumberIn<std::int16_t>(m_map, at) : 0;
  if (form.hasSections) at += 2;
  if (form.isCompressed) {
    const std::size_t origin = at + 4;  // behind the place of a label
    from.SetOrigin(NumberIn<std::int32_t>(m_map, origin), NumberIn<std::int32_t>(m_map, origin + 4));
  }
  if (form.hasSections) return sections > 0 && ReadSections(from, form, std::size_t(sections), feature);
  return ReadVertices(from, form, size / (form.isCompressed ? 4 : 8), feature.parts.emplace_back());
}

bool MapFile::ReadSections(Coordinates &from, const Form &form, std::size_t count, Feature &feature) const {
  struct Section {
    std::size_t vertices;
    int holes;
  };
  constexpr std::size_t BytesOfVertex = 8;
  const std::size_t headers = count * (form.hasLongSections ? 28 : 24);
  std::vector<Section> sections;
  std::size_t before = 0;
  for (std::size_t i = 0; i < count && from.IsGood(); ++i) {
    const auto vertices =
        std::size_t(form.hasLongSections ? from.Read<std::int32_t>() : std::int32_t(from.Read<std::int16_t>()));
    sections.push_back({vertices, from.Read<std::int16_t>()});
    static_cast<void>(from.ReadPoint(form.isCompressed));  // of its bounds
    static_cast<void>(from.ReadPoint(form.isCompressed));
    if (from.Read<std::uint32_t>() != headers + before * BytesOfVertex) return false;
    before += vertices;
  }
  int holesLeft = 0;
  for (const Section &section : sections) {
    Part &part = feature.parts.emplace_back();
    part.isHole = holesLeft > 0;
    holesLeft = part.isHole ? holesLeft - 1 : section.holes;
    if (!ReadVertices(from, form, section.vertices, part)) return false;
  }
  return true;
}

bool MapFile::ReadVertices(Coordinates &from, const Form &form, std::size_t count, Part &part) const {
  const std::size_t least = form.kind == Kind::Region ? 3 : 2;
  if (!from.IsGood() || count < least || count > m_map.size() / 4) return false;
  part.points.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const auto [x, y] = from.ReadPoint(form.isCompressed);
    part.points.push_back(PointOf(x, y));
  }
  return from.IsGood();
}

}  // namespace tessera::mitab
