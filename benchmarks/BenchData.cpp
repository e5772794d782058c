// SPDX-License-Identifier: MIT
#include "BenchData.h"

#include "BenchShapes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <array>
#include <charconv>
#include <cmath>
#include <span>
#include <stdexcept>
#include <vector>

namespace tessera::bench {
namespace {

constexpr int QuickDivisor = 20;
/// Part of the file names: raise it when the generator changes, so that old files are not taken for new ones.
constexpr int GeneratorVersion = 2;

// The map is this wide and high, in degrees.
constexpr double MinLon = 20;
constexpr double MinLat = 40;
constexpr double Width = 60;
constexpr double Height = 40;

/// A pixel of a picture of the whole map that is 1024 pixels wide: what the shapes are sized by.
constexpr double Pixel = Width / 1024;
constexpr TBounds Area{MinLon, MinLat, MinLon + Width, MinLat + Height};

/// A text file written through a buffer, with numbers formatted in place.
class TextFile {
 public:
  explicit TextFile(const QString &path) : m_file(path) {
    if (!m_file.open(QIODevice::WriteOnly)) Fail();
    m_buffer.reserve(FlushAt + 256);
  }
  TextFile &operator<<(std::string_view text) {
    m_buffer.append(text);
    if (m_buffer.size() >= FlushAt) Flush();
    return *this;
  }
  TextFile &operator<<(char letter) { return *this << std::string_view(&letter, 1); }
  TextFile &operator<<(std::size_t value) {
    std::array<char, 24> digits{};
    const auto *const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return *this << std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data()));
  }
  /// With six decimals.
  TextFile &operator<<(double value) {
    const auto scaled = std::llround(value * 1e6);
    if (scaled < 0) *this << '-';
    const auto magnitude = static_cast<std::size_t>(std::abs(scaled));
    *this << magnitude / 1'000'000 << '.';
    std::array<char, 6> decimals{};
    std::size_t rest = magnitude % 1'000'000;
    for (auto digit = decimals.rbegin(); digit != decimals.rend(); ++digit, rest /= 10) {
      *digit = static_cast<char>('0' + rest % 10);
    }
    return *this << std::string_view(decimals.data(), decimals.size());
  }
  void Commit() {
    Flush();
    if (!m_file.commit()) Fail();
  }

 private:
  static constexpr std::size_t FlushAt = std::size_t{1} << 20U;

  [[noreturn]] void Fail() const {
    throw std::runtime_error(m_file.fileName().toStdString() + ": " + m_file.errorString().toStdString());
  }
  void Flush() {
    const auto size = static_cast<qint64>(m_buffer.size());
    if (m_file.write(m_buffer.data(), size) != size) Fail();
    m_buffer.clear();
  }

  QSaveFile m_file;
  std::string m_buffer;
};

void WritePoints(TextFile &mif, std::span<const FlatVertex> points) {
  for (const FlatVertex &point : points) mif << point.x << ' ' << point.y << '\n';
}

struct Kind {
  std::string_view name;
  std::size_t color;
};

constexpr std::array<Kind, 8> Kinds = {{{"Broadleaved forest", 0x5FA04E},
                                        {"Coniferous forest", 0x2F7040},
                                        {"Pasture", 0xC5DC82},
                                        {"Arable land", 0xF2E394},
                                        {"Settlement", 0xD97A6C},
                                        {"Wetland", 0x9CB8C9},
                                        {"Open water", 0x6BAED6},
                                        {"Bare rock", 0xB8ADA0}}};

/// The two files of a set, while they are written.
class SetWriter {
 public:
  explicit SetWriter(const QString &mifPath)
      : m_mid(QFileInfo(mifPath).path() + u'/' + QFileInfo(mifPath).completeBaseName() + QStringLiteral(".mid")),
        m_mif(mifPath) {
    m_mif << "Version 300\nCharset \"WindowsCyrillic\"\nDelimiter \",\"\nCoordSys Earth Projection 1, 0\nColumns 3\n"
             "  Code Integer\n  Share Float\n  Kind Char(32)\nData\n\n";
  }
  [[nodiscard]] TextFile &Mif() { return m_mif; }
  void AddAttributes(std::size_t code, double share, const Kind &kind) {
    m_mid << code << ',' << share << ",\"" << kind.name << "\"\n";
  }
  /// The MIF file comes last: where it is there, the set is complete.
  void Commit() {
    m_mid.Commit();
    m_mif.Commit();
  }

 private:
  TextFile m_mid;
  TextFile m_mif;
};

/// Coastlines: a few land masses, and islands along their coasts.
void WriteRegions(SetWriter &writer, std::size_t divisor, Random &random) {
  constexpr std::size_t LandMasses = 10;
  // A ring of 390 vertices is about a pixel across, the largest one 300.
  constexpr double PixelSize = 390;
  constexpr double Growth = 0.71;
  std::vector<FlatVertex> coast;
  std::vector<std::vector<FlatVertex>> rings;
  for (const std::size_t size : CoastSizes(divisor)) {
    const double radius = 0.5 * Pixel * std::pow(static_cast<double>(size * divisor) / PixelSize, Growth);
    const bool isMass = rings.size() < LandMasses;
    FlatVertex centre = {random.Between(MinLon + radius, MinLon + Width - radius),
                         random.Between(MinLat + radius, MinLat + Height - radius)};
    if (rings.empty()) {
      // Its coast runs through the middle of the map, where the parts are taken that are shown larger.
      centre = {MinLon + Width / 2 - 1.145 * radius, MinLat + Height / 2};
    }
    if (!isMass) {
      const FlatVertex &at = coast[random.Below(coast.size())];
      const double off = 4 * Pixel * random.Unit();
      centre = {at.x + off * random.Bell(), at.y + off * random.Bell()};
    }
    rings.push_back(CoastRing(centre, radius, size, random));
    if (isMass) coast.insert(coast.end(), rings.back().begin(), rings.back().end());
  }
  Shuffle(rings, random);
  for (std::size_t i = 0; i < rings.size(); ++i) {
    const Kind &kind = Kinds[random.Below(Kinds.size())];
    writer.Mif() << "Region  1\n" << rings[i].size() << '\n';
    WritePoints(writer.Mif(), rings[i]);
    writer.Mif() << "    Pen (1,2,8421504)\n    Brush (2," << kind.color << ")\n";
    writer.AddAttributes(i + 1, random.Unit(), kind);
  }
}

/// Rivers that flow into each other, and short straight pieces that join them.
void WriteLines(SetWriter &writer, std::size_t divisor, Random &random) {
  constexpr double StepLength = 0.016 * Pixel;
  constexpr std::size_t Springs = 5000;
  std::vector<FlatVertex> joints;
  for (std::size_t i = 0; i < Springs; ++i) {
    joints.push_back({random.Between(MinLon, MinLon + Width), random.Between(MinLat, MinLat + Height)});
  }
  std::vector<std::size_t> sizes = RiverSizes(37'000 / divisor, random);
  sizes.insert(sizes.end(), 12'000 / divisor, 2);
  Shuffle(sizes, random);
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const double step = sizes[i] == 2 ? 60 * StepLength : StepLength;
    const std::vector<FlatVertex> line = WindingLine(joints[random.Below(joints.size())], sizes[i], step, Area, random);
    joints.push_back(line.back());
    const Kind &kind = Kinds[random.Below(Kinds.size())];
    writer.Mif() << "Pline " << line.size() << '\n';
    WritePoints(writer.Mif(), line);
    writer.Mif() << "    Pen (1,2," << kind.color << ")\n";
    writer.AddAttributes(i + 1, random.Unit(), kind);
  }
}

/// How the symbols of a set of places look.
struct PlaceLook {
  bool isStyled;
  std::size_t sizePt;
};

void WritePlaces(SetWriter &writer, std::size_t divisor, PlaceLook look, Random &random) {
  std::vector<FlatVertex> towns(2000);
  for (FlatVertex &town : towns) {
    town = {random.Between(MinLon + 2, MinLon + Width - 2), random.Between(MinLat + 2, MinLat + Height - 2)};
  }
  constexpr std::array<std::size_t, 4> Shapes = {32, 34, 35, 50};
  const std::size_t count = 1'000'000 / divisor;
  for (std::size_t i = 0; i < count; ++i) {
    const FlatVertex town = towns[random.Below(towns.size())];
    const bool isRural = random.Below(5) == 0;
    const FlatVertex place =
        isRural ? FlatVertex{random.Between(MinLon, MinLon + Width), random.Between(MinLat, MinLat + Height)}
                : FlatVertex{town.x + 0.5 * random.Bell(), town.y + 0.5 * random.Bell()};
    const std::size_t index = random.Below(Kinds.size());
    const std::size_t shown = look.isStyled ? index : 1;
    writer.Mif() << "Point " << place.x << ' ' << place.y << "\n    Symbol (" << Shapes[shown % Shapes.size()] << ','
                 << Kinds[shown].color << ',' << look.sizePt << ")\n";
    writer.AddAttributes(i + 1, random.Unit(), Kinds[index]);
  }
}

}  // namespace

QString NameOf(BenchSet set) {
  switch (set) {
    case BenchSet::Regions:
      return QStringLiteral("L");
    case BenchSet::Lines:
      return QStringLiteral("R");
    case BenchSet::Points:
      return QStringLiteral("P");
    case BenchSet::SmallPlainPoints:
      return QStringLiteral("P5");
    case BenchSet::LargePlainPoints:
      break;
  }
  return QStringLiteral("P16");
}

int SymbolSizePx(BenchSet set) {
  switch (set) {
    case BenchSet::SmallPlainPoints:
      return 5;
    case BenchSet::LargePlainPoints:
      return 16;
    default:
      return 11;
  }
}

QString EnsureSet(BenchSet set, BenchScale scale, const QString &directory) {
  const std::size_t divisor = scale == BenchScale::Quick ? QuickDivisor : 1;
  const QString name = QStringLiteral("%1-v%2-1of%3.mif").arg(NameOf(set)).arg(GeneratorVersion).arg(divisor);
  QString path = QDir(directory).filePath(name);
  if (QFile::exists(path)) return path;
  QDir().mkpath(directory);
  Random random(20'240'101U + static_cast<unsigned>(set));
  SetWriter writer(path);
  switch (set) {
    case BenchSet::Regions:
      WriteRegions(writer, divisor, random);
      break;
    case BenchSet::Lines:
      WriteLines(writer, divisor, random);
      break;
    default:
      // Sizes in the file are points, of which 72 make up the length of 96 pixels.
      WritePlaces(writer, divisor, {set == BenchSet::Points, static_cast<std::size_t>(SymbolSizePx(set) * 3 + 2) / 4},
                  random);
      break;
  }
  writer.Commit();
  return path;
}

}  // namespace tessera::bench
