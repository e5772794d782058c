// SPDX-License-Identifier: MIT
#include <tessera/data/detail/ValueRecordIO.h>

#include <cstring>

namespace tessera::detail {
namespace {

enum Tag : char { Unassigned, Text, Integer, Real, False, True, Moment };

// The length of a text is written in groups of seven bits, low ones first; the high bit says that more follow.
constexpr unsigned GroupBits = 7;
constexpr unsigned char MoreGroups = 0x80;

std::size_t ReadLength(std::string_view bytes, std::size_t &at) {
  std::size_t length = 0;
  for (unsigned shift = 0;; shift += GroupBits) {
    const auto group = static_cast<unsigned char>(bytes[at++]);
    length |= std::size_t(group & ~MoreGroups) << shift;
    if ((group & MoreGroups) == 0) return length;
  }
}

std::size_t PackedSize(std::string_view bytes) {
  switch (bytes[0]) {
    case Text: {
      std::size_t at = 1;
      const std::size_t length = ReadLength(bytes, at);
      return at + length;
    }
    case Integer:
      return 1 + sizeof(std::int32_t);
    case Real:
    case Moment:
      return 1 + sizeof(double);
    default:
      return 1;
  }
}

/// The text of UTF-8 bytes. A mark of byte order at their beginning, which fromUtf8 passes over, belongs to the text.
QString DecodedText(std::string_view utf8) {
  const QString text = QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
  return utf8.starts_with("\xEF\xBB\xBF") ? QChar(QChar::ByteOrderMark) + text : text;
}

template <typename T>
T Payload(std::string_view packed) {
  T value;
  std::memcpy(&value, packed.data() + 1, sizeof value);
  return value;
}

}  // namespace

void ValueRecordWriter::AppendRaw(char tag, const void *payload, std::size_t size) {
  m_bytes.push_back(tag);
  const char *first = static_cast<const char *>(payload);
  m_bytes.insert(m_bytes.end(), first, first + size);
}

void ValueRecordWriter::AppendUnassigned() {
  m_bytes.push_back(Unassigned);
}

void ValueRecordWriter::AppendText(std::string_view utf8) {
  m_bytes.push_back(Text);
  std::size_t rest = utf8.size();
  for (; rest >= MoreGroups; rest >>= GroupBits) m_bytes.push_back(char((rest & 0x7F) | MoreGroups));
  m_bytes.push_back(char(rest));
  m_bytes.insert(m_bytes.end(), utf8.begin(), utf8.end());
}

void ValueRecordWriter::Append(const TDataValue &value) {
  if (const auto *text = std::get_if<QString>(&value)) {
    const QByteArray utf8 = text->toUtf8();
    AppendText({utf8.constData(), std::size_t(utf8.size())});
  } else if (const auto *integer = std::get_if<std::int32_t>(&value)) {
    AppendRaw(Integer, integer, sizeof *integer);
  } else if (const auto *real = std::get_if<double>(&value)) {
    AppendRaw(Real, real, sizeof *real);
  } else if (const auto *flag = std::get_if<bool>(&value)) {
    m_bytes.push_back(*flag ? True : False);
  } else if (const auto *moment = std::get_if<TDateTime>(&value)) {
    AppendRaw(Moment, &moment->days, sizeof moment->days);
  } else {
    AppendUnassigned();
  }
}

std::string_view ValueRecordReader::NextPacked() {
  if (m_rest.empty()) return {};
  const std::string_view packed = m_rest.substr(0, PackedSize(m_rest));
  m_rest.remove_prefix(packed.size());
  return packed;
}

bool ValueRecordReader::IsText(std::string_view packed, std::string_view &utf8) {
  if (packed.empty() || packed[0] != Text) return false;
  std::size_t at = 1;
  const std::size_t length = ReadLength(packed, at);
  utf8 = packed.substr(at, length);
  return true;
}

TDataValue ValueRecordReader::Unpack(std::string_view packed) {
  std::string_view utf8;
  if (IsText(packed, utf8)) return DecodedText(utf8);
  switch (packed.empty() ? char(Unassigned) : packed[0]) {
    case Integer:
      return Payload<std::int32_t>(packed);
    case Real:
      return Payload<double>(packed);
    case False:
      return false;
    case True:
      return true;
    case Moment:
      return TDateTime{Payload<double>(packed)};
    default:
      return {};
  }
}

}  // namespace tessera::detail
