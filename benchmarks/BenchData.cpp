// SPDX-License-Identifier: MIT
#include "BenchData.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <numeric>
#include <random>
#include <span>
#include <stdexcept>
#include <vector>

namespace tessera::bench {
namespace {

constexpr int QuickDivisor = 20;
/// Part of the file names: raise it when the generator changes, so that old files are not taken for new ones.
constexpr int GeneratorVersion = 1;

// The map is this wide and high, in degrees.
constexpr double MinLon = 20;
constexpr double MinLat = 40;
constexpr double Width = 60;
constexpr double Height = 40;

/// The generator of the standard library without its distributions: those differ between library makers.
class Random {
 public:
  explicit Random(unsigned seed) : m_engine(seed) {}
  /// At least 0, less than 1.
  double Unit() { return static_cast<double>(m_engine() >> 11U) * 0x1p-53; }
  double Between(double low, double high) { return low + (high - low) * Unit(); }
  std::size_t Below(std::size_t count) { return static_cast<std::size_t>(m_engine() % count); }
  /// Near enough to a normal distribution, with a deviation of 1.
  double Bell() { return (Unit() + Unit() + Unit() + Unit() - 2) * std::numbers::sqrt3; }

 private:
  std::mt19937_64 m_engine;
};

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
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
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

struct Point {
  double x;
  double y;
};

/// `count` sizes, the largest first, that fall as a power of their rank from `largest` on and sum up to `total`.
std::vector<std::size_t> PowerLawSizes(std::size_t count, std::size_t total, std::size_t largest,
                                       std::size_t smallest) {
  std::vector<std::size_t> sizes(count);
  const auto fill = [&](double exponent) {
    for (std::size_t i = 0; i < count; ++i) {
      const double size = static_cast<double>(largest) * std::pow(static_cast<double>(i + 1), -exponent);
      sizes[i] = smallest + static_cast<std::size_t>(size);
    }
    return std::accumulate(sizes.begin(), sizes.end(), std::size_t{0});
  };
  double low = 0;
  double high = 4;
  for (int step = 0; step < 60; ++step) {
    const double middle = (low + high) / 2;
    (fill(middle) > total ? low : high) = middle;
  }
  // A little below the total now; the first sizes take up the rest.
  const std::size_t missing = total - fill(high);
  for (std::size_t i = 0; i < missing; ++i) ++sizes[i % count];
  return sizes;
}

template <typename Value>
void Shuffle(std::vector<Value> &values, Random &random) {
  for (std::size_t i = values.size(); i > 1; --i) std::swap(values[i - 1], values[random.Below(i)]);
}

/// A closed ring whose distance from its centre is a sum of ever finer waves, as a coast has them: it winds on every
/// scale and does not cross itself. The last point repeats the first.
std::vector<Point> WobblyRing(Point centre, double radius, std::size_t pointCount, Random &random) {
  struct Wave {
    double cosine, sine, stepCosine, stepSine;
  };
  const std::size_t sides = pointCount - 1;
  const double step = 2 * std::numbers::pi / static_cast<double>(sides);
  std::vector<Wave> waves;
  double amplitude = 0.22;
  for (std::size_t count = 2; count * 6 <= sides; count *= 2, amplitude *= 0.52) {
    const double phase = random.Between(0, 2 * std::numbers::pi);
    const double turn = step * static_cast<double>(count + random.Below(count));
    waves.push_back({amplitude * std::cos(phase), amplitude * std::sin(phase), std::cos(turn), std::sin(turn)});
  }
  std::vector<Point> ring;
  ring.reserve(pointCount);
  for (std::size_t i = 0; i < sides; ++i) {
    double reach = 1 + random.Between(-0.4, 0.4) * step;
    for (Wave &wave : waves) {
      reach += wave.cosine;
      const double cosine = wave.cosine * wave.stepCosine - wave.sine * wave.stepSine;
      wave.sine = wave.cosine * wave.stepSine + wave.sine * wave.stepCosine;
      wave.cosine = cosine;
    }
    const double angle = step * static_cast<double>(i);
    ring.push_back({centre.x + radius * reach * std::cos(angle), centre.y + radius * reach * std::sin(angle)});
  }
  ring.push_back(ring.front());
  return ring;
}

/// A line that keeps its heading, more or less, and turns back at the border of the map.
std::vector<Point> WindingLine(Point start, std::size_t pointCount, Random &random) {
  std::vector<Point> line = {start};
  line.reserve(pointCount);
  double heading = random.Between(0, 2 * std::numbers::pi);
  const double stepLength = random.Between(0.005, 0.02);
  while (line.size() < pointCount) {
    const Point last = line.back();
    const Point fromMiddle = {last.x - (MinLon + Width / 2), last.y - (MinLat + Height / 2)};
    const bool isOutside = std::abs(fromMiddle.x) > Width / 2 || std::abs(fromMiddle.y) > Height / 2;
    heading = isOutside ? std::atan2(-fromMiddle.y, -fromMiddle.x) : heading + random.Between(-0.4, 0.4);
    line.push_back({last.x + stepLength * std::cos(heading), last.y + stepLength * std::sin(heading)});
  }
  return line;
}

void WritePoints(TextFile &mif, std::span<const Point> points) {
  for (const Point &point : points) mif << point.x << ' ' << point.y << '\n';
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

void WriteRegions(SetWriter &writer, std::size_t divisor, Random &random) {
  const std::size_t largest = 1'100'000 / divisor;
  std::vector<std::size_t> sizes = PowerLawSizes(190'000 / divisor, 11'000'000 / divisor, largest, 4);
  Shuffle(sizes, random);
  // Areas go with the number of vertices; together they are about as large as the map.
  constexpr double LargestRadius = 8;
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const double radius = LargestRadius * std::sqrt(static_cast<double>(sizes[i]) / static_cast<double>(largest));
    const Point centre = {random.Between(MinLon + radius, MinLon + Width - radius),
                          random.Between(MinLat + radius, MinLat + Height - radius)};
    const Kind &kind = Kinds[random.Below(Kinds.size())];
    writer.Mif() << "Region  1\n" << sizes[i] << '\n';
    WritePoints(writer.Mif(), WobblyRing(centre, radius, sizes[i], random));
    writer.Mif() << "    Pen (1,2,8421504)\n    Brush (2," << kind.color << ")\n";
    writer.AddAttributes(i + 1, random.Unit(), kind);
  }
}

void WriteLines(SetWriter &writer, std::size_t divisor, Random &random) {
  std::vector<std::size_t> sizes = PowerLawSizes(50'000 / divisor, 3'300'000 / divisor, 40'000 / divisor, 2);
  Shuffle(sizes, random);
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const Point start = {random.Between(MinLon, MinLon + Width), random.Between(MinLat, MinLat + Height)};
    const Kind &kind = Kinds[random.Below(Kinds.size())];
    writer.Mif() << "Pline " << sizes[i] << '\n';
    WritePoints(writer.Mif(), WindingLine(start, sizes[i], random));
    writer.Mif() << "    Pen (1,2," << kind.color << ")\n";
    writer.AddAttributes(i + 1, random.Unit(), kind);
  }
}

void WritePlaces(SetWriter &writer, std::size_t divisor, Random &random) {
  std::vector<Point> towns(2000);
  for (Point &town : towns) {
    town = {random.Between(MinLon + 2, MinLon + Width - 2), random.Between(MinLat + 2, MinLat + Height - 2)};
  }
  constexpr std::array<std::size_t, 4> Shapes = {32, 34, 35, 50};
  const std::size_t count = 1'000'000 / divisor;
  for (std::size_t i = 0; i < count; ++i) {
    const Point town = towns[random.Below(towns.size())];
    const bool isRural = random.Below(5) == 0;
    const Point place = isRural ? Point{random.Between(MinLon, MinLon + Width), random.Between(MinLat, MinLat + Height)}
                                : Point{town.x + 0.5 * random.Bell(), town.y + 0.5 * random.Bell()};
    const std::size_t index = random.Below(Kinds.size());
    writer.Mif() << "Point " << place.x << ' ' << place.y << "\n    Symbol (" << Shapes[index % Shapes.size()] << ','
                 << Kinds[index].color << ",8)\n";
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
      break;
  }
  return QStringLiteral("P");
}

QString EnsureSet(BenchSet set, BenchScale scale, const QString &directory) {
  const std::size_t divisor = scale == BenchScale::Quick ? QuickDivisor : 1;
  const QString name = QStringLiteral("%1-v%2-1of%3.mif").arg(NameOf(set)).arg(GeneratorVersion).arg(divisor);
  const QString path = QDir(directory).filePath(name);
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
    case BenchSet::Points:
      WritePlaces(writer, divisor, random);
      break;
  }
  writer.Commit();
  return path;
}

}  // namespace tessera::bench
