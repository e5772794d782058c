// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/layers/TIndexCell.h>
#include <tessera/layers/detail/IndexBelow.h>

#include <QIODevice>
#include <QSaveFile>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace tessera {
namespace {

/// The first nine characters of the name of the format, in UTF-16, low bytes first.
constexpr char Header[] = "T\0e\0s\0s\0e\0r\0a\0 \0I";
constexpr qint64 HeaderSize = sizeof(Header);
static_assert(HeaderSize == 18);
constexpr qint64 IdSize = 4;
/// A record without ids and children.
constexpr qint64 SmallestRecord = 4 * sizeof(double) + 2 * IdSize;
/// More levels than between the largest and the smallest double number.
constexpr int MaxDepth = 2200;

}  // namespace

namespace detail {

/// Writes the record of a cell with all below it.
class IndexWriter {
 public:
  explicit IndexWriter(QIODevice &device) : m_device(device) {}

  void WriteCell(const TIndexCell &cell) {
    WriteHead(cell.m_bounds, cell.m_ids, cell.GetCount());
    if (cell.m_below) WriteChildren(*cell.m_below->tree, cell.m_below->cell);
    for (const auto &child : cell.m_cells) WriteCell(*child);
  }
  void Flush() {
    if (m_device.write(m_bytes) != m_bytes.size()) {
      throw EInOutError(QStringLiteral("Cannot write the index: %1").arg(m_device.errorString()));
    }
    m_bytes.resize(0);
  }

 private:
  void WriteChildren(const IndexTree &tree, const IndexTree::Cell &cell) {
    tree.ForEachChild(cell, [&](const IndexTree::Cell &child) {
      const bool isLeaf = tree.IsLeaf(child);
      WriteHead(child.bounds, isLeaf ? tree.IdsOf(child) : std::span<const std::uint32_t>(), tree.CountChildren(child));
      if (!isLeaf) WriteChildren(tree, child);
    });
  }
  void WriteHead(const TCellBounds &bounds, std::span<const std::uint32_t> ids, int children) {
    for (const double value : {bounds.MinX, bounds.MaxX, bounds.MinY, bounds.MaxY}) {
      Write(std::bit_cast<std::uint64_t>(value));
    }
    Write(std::uint32_t(ids.size()));
    for (const std::uint32_t id : ids) Write(id);
    Write(std::uint32_t(children));
  }
  template <typename Number>
  void Write(Number value) {
    const Number little = qToLittleEndian(value);
    m_bytes.append(reinterpret_cast<const char *>(&little), sizeof(little));
    if (m_bytes.size() >= BufferSize) Flush();
  }

  static constexpr int BufferSize = 64 * 1024;
  QIODevice &m_device;
  QByteArray m_bytes;
};

/// Reads the record of a cell with all below it. Nothing is believed that the rest of the device cannot hold.
class IndexReader {
 public:
  IndexReader(QIODevice &device, TIndexCell &root) : m_device(device), m_root(root) {}

  void ReadRecord(TIndexCell &cell, int depth) {
    if (depth > MaxDepth) Fail(QStringLiteral("cells lie too deep in each other"));
    std::array<double, 4> bounds{};
    for (double &value : bounds) value = std::bit_cast<double>(Read<std::uint64_t>());
    cell.m_bounds = {bounds[0], bounds[1], bounds[2], bounds[3]};
    const std::uint32_t ids = ReadCount(IdSize, QStringLiteral("ids"));
    cell.m_ids.reserve(ids);
    for (std::uint32_t i = 0; i < ids; ++i) cell.m_ids.push_back(Read<std::uint32_t>());
    const std::uint32_t children = ReadCount(SmallestRecord, QStringLiteral("cells"));
    cell.m_cells.reserve(children);
    for (std::uint32_t i = 0; i < children; ++i) {
      cell.m_cells.push_back(std::make_unique<TIndexCell>(&m_root));
      ReadRecord(*cell.m_cells.back(), depth + 1);
    }
  }

  /// Puts what was read into `m_root` behind what it has.
  void HandOver(TIndexCell &read) {
    m_root.m_bounds = read.m_bounds;
    m_root.m_ids.insert(m_root.m_ids.end(), read.m_ids.begin(), read.m_ids.end());
    std::move(read.m_cells.begin(), read.m_cells.end(), std::back_inserter(m_root.MakeCells()));
  }

 private:
  [[noreturn]] void Fail(const QString &what) const {
    throw EInOutError(QStringLiteral("Damaged index at byte %1: %2").arg(m_device.pos()).arg(what));
  }
  [[nodiscard]] qint64 Remaining() const {
    return m_device.isSequential() ? m_device.bytesAvailable() : m_device.size() - m_device.pos();
  }
  template <typename Number>
  Number Read() {
    Number value{};
    if (m_device.read(reinterpret_cast<char *>(&value), sizeof(value)) != qint64(sizeof(value))) {
      Fail(QStringLiteral("it ends within a record"));
    }
    return qFromLittleEndian(value);
  }
  std::uint32_t ReadCount(qint64 itemSize, const QString &what) {
    const auto count = Read<std::uint32_t>();
    if (qint64(count) > Remaining() / itemSize) Fail(QStringLiteral("no room for %1 %2").arg(count).arg(what));
    return count;
  }

  QIODevice &m_device;
  TIndexCell &m_root;
};

}  // namespace detail

bool TIndexCell::LoadFromToFile(const QString & /*fileName*/) {
  return false;
}

bool TIndexCell::SaveToFile(const QString &fileName) const {
  QSaveFile file(fileName);
  if (!file.open(QIODevice::WriteOnly)) {
    throw EInOutError(QStringLiteral("Cannot create %1: %2").arg(fileName, file.errorString()));
  }
  file.write(Header, HeaderSize);
  WriteIndex(file);
  if (!file.commit()) throw EInOutError(QStringLiteral("Cannot write %1: %2").arg(fileName, file.errorString()));
  return true;
}

void TIndexCell::WriteIndex(QIODevice &device) const {
  detail::IndexWriter writer(device);
  writer.WriteCell(*this);
  writer.Flush();
}

void TIndexCell::ReadIndex(QIODevice &device) {
  detail::IndexReader reader(device, *this);
  TIndexCell read;
  reader.ReadRecord(read, 0);
  reader.HandOver(read);
}

}  // namespace tessera
