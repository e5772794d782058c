// SPDX-License-Identifier: MIT
#include "MifFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/formats/detail/MifReader.h>

#include <bit>
#include <random>
#include <sstream>

namespace tessera {
namespace {

using detail::LookAheadLimits;

/// A seeded source of files, with defects now and then.
class RandomPair {
 public:
  explicit RandomPair(unsigned seed) : m_random(seed) {
    m_mif = "Version 300\nDelimiter \"" + std::string(OneOf({",", ";", ", "})) +
            "\"\nColumns 3\n a Char(9)\n b Float\n c " + OneOf({"Integer", "Date"}) + "\nData\n\n";
    for (std::size_t i = m_random() % 60; i > 0; --i) AddObject();
    for (std::size_t i = m_random() % 3 == 0 ? 1 + m_random() % 3 : 0; i > 0; --i)
      Damage(m_random() % 2 ? m_mif : m_mid);
  }
  [[nodiscard]] const std::string &Mif() const { return m_mif; }
  [[nodiscard]] const std::string &Mid() const { return m_mid; }

 private:
  const char *OneOf(std::initializer_list<const char *> words) { return std::data(words)[m_random() % words.size()]; }

  void AddVertices(std::size_t count) {
    for (; count > 0; --count) {
      m_mif += OneOf({"", "", "", " ", "\n"}) + std::to_string(int(m_random() % 400) - 200) +
               OneOf({"", ".5", ".000001", ".12345678901234", "e-2"}) + OneOf({" ", "  ", "\t"}) +
               std::to_string(double(int(m_random())) / 1e6) + OneOf({"\n", "\n", "\n", "\r\n", " \n", " x\n"});
    }
  }
  void AddObject() {
    const std::size_t count = m_random() % 12 == 0 ? m_random() % 300 : m_random() % 6;
    const std::string number = std::to_string(count);
    switch (m_random() % 6) {
      case 0:
        m_mif += "Region 2\n  " + number + '\n';
        AddVertices(count);
        m_mif += number + '\n';
        break;
      case 1:
        m_mif += "Pline Multiple 2\n" + number + '\n';
        AddVertices(count);
        m_mif += number + '\n';
        break;
      case 2:
        m_mif += OneOf({"Delimiter \";\"\n", "Columns 1\n d Char(3)\n", "Text\n \"x\"\n1 2 3 4\n"});
        [[fallthrough]];
      case 3:
        m_mif += "Point 1.5 " + number + "\nSymbol (35,0,12)\n";
        break;
      default:
        m_mif += "Pline " + number + '\n';
    }
    AddVertices(count);
    m_mif += OneOf({"", "Pen (1,2,255)\n", "Center 1 1\n"});
    m_mid += OneOf({"\"x\",1.5,7\n", "\"\xCE\xE1\";2;\r\n", "\n", "\"a, b\", 2,3,4\n"});
  }
  void Damage(std::string &text) {
    if (text.empty()) return;
    const std::size_t at = m_random() % text.size();
    if (m_random() % 2 == 0) {
      text[at] = "x\n-. 9\r"[m_random() % 7];
    } else {
      text.erase(at, m_random() % 9);
    }
  }

  std::mt19937 m_random;
  std::string m_mif;
  std::string m_mid;
};

/// Everything that a load leaves behind and tells of, to the bit.
std::string Load(const RandomPair &pair, const LookAheadLimits &limits, int lastProgress) {
  test::TFakeMapHost map;
  auto layer = std::make_unique<TMapLayer>();
  map.Name(layer.get(), "layer");
  layer->SetMap(&map);
  map.onShowProgress = [&] {
    if (--lastProgress == 0) layer.reset();
  };
  detail::MemorySource mif(pair.Mif());
  detail::MemorySource mid(pair.Mid());
  TFormatReport report;
  std::ostringstream told;
  {
    detail::MifReader reader(*layer, mif, &mid, report, limits);
    try {
      reader.Read();
    } catch (const std::exception &error) {
      report.Fail(reader.GetLine(), MessageOf(error));
    }
    reader.FinishReport();
  }
  for (int i = 0; layer && i < layer->GetObjectCount(); ++i) {
    const TCustomMapObject &object = *layer->GetObjects(i);
    told << object.GetFields().GetRecord().Bytes() << '|';
    for (const TPart &part : object.GetParts().Items()) {
      for (const TMapPoint &point : part.GetPoints().Points()) {
        told << std::bit_cast<std::uint64_t>(point.X) << ' ' << std::bit_cast<std::uint64_t>(point.Y) << ' ';
      }
      told << ';';
    }
    told << std::hexfloat << object.GetBounds().MinX << ' ' << object.GetBounds().MaxY << '\n';
  }
  for (const std::string &event : map.TakeEvents()) told << event << '\n';
  told << report.Summary().toStdString() << report.warnings.join(u'\n').toStdString()
       << report.losses.join(u'\n').toStdString();
  if (report.firstError) told << report.firstError->line << report.firstError->words.toStdString();
  return told.str();
}

// Benchmark rows "load": vertices and values are read ahead in other threads.
TEST(MifThreadsTest, ReadsRandomFilesAsOnOneThreadWhateverHandlersDo) {
  std::mt19937 random(5);
  int whole = 0;
  for (unsigned seed = 0; seed < 600; ++seed) {
    const RandomPair pair(seed);
    const int lastProgress = random() % 8 == 0 ? int(random() % 40) : 0;
    const std::string plain = Load(pair, LookAheadLimits::Nothing(), lastProgress);
    const LookAheadLimits limits{
        .chunkBytes = qint64(1 + random() % 300), .chunks = qint64(1 + random() % 5), .leastBytes = 0};
    ASSERT_EQ(Load(pair, limits, lastProgress), plain) << "seed " << seed << '\n' << pair.Mif();
    if (plain.find("error") == std::string::npos) ++whole;
  }
  EXPECT_GT(whole, 100);
}

}  // namespace
}  // namespace tessera
