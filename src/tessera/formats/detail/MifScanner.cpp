// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/formats/detail/MifItems.h>
#include <tessera/formats/detail/MifScanner.h>
#include <tessera/formats/detail/MifText.h>

#include <algorithm>
#include <cstring>

namespace tessera::detail {
namespace {

const char *FindByte(const char *first, const char *last, char byte) {
  const void *found = first == last ? nullptr : std::memchr(first, byte, std::size_t(last - first));
  return found ? static_cast<const char *>(found) : last;
}

}  // namespace

MappedFile::MappedFile(const QString &fileName) : m_file(fileName) {
  if (!m_file.open(QIODevice::ReadOnly)) {
    throw EInOutError(QStringLiteral("Cannot open file \"%1\". %2").arg(fileName, m_file.errorString()));
  }
  if (const uchar *mapped = m_file.size() > 0 ? m_file.map(0, m_file.size()) : nullptr) {
    m_bytes = {reinterpret_cast<const char *>(mapped), std::size_t(m_file.size())};
    return;
  }
  m_copy = m_file.readAll();
  if (m_file.error() != QFileDevice::NoError) {
    throw EInOutError(QStringLiteral("Cannot read file \"%1\". %2").arg(fileName, m_file.errorString()));
  }
  m_bytes = {m_copy.constData(), std::size_t(m_copy.size())};
}

MifScanner::MifScanner(std::string_view bytes, char separator)
    : m_first(bytes.data()),
      m_last(bytes.data() + bytes.size()),
      m_at(m_first),
      m_separator(separator),
      m_lineFeed(FindByte(m_first, m_last, '\n')),
      m_carriageReturn(FindByte(m_first, m_last, '\r')),
      m_mark(m_first),
      m_countedTo(m_first) {}

const char *MifScanner::FindLineEnd() {
  if (m_lineFeed < m_at) m_lineFeed = FindByte(m_at, m_last, '\n');
  if (m_carriageReturn < m_at) m_carriageReturn = FindByte(m_at, m_last, '\r');
  return std::min(m_lineFeed, m_carriageReturn);
}

void MifScanner::PassLineEnd(const char *lineEnd) {
  m_at = lineEnd;
  if (m_at != m_last && *m_at == '\r') ++m_at;
  if (m_at != m_last && *m_at == '\n' && (m_at == lineEnd || m_at[-1] == '\r')) ++m_at;
}

std::string_view MifScanner::ReadLine() {
  m_mark = m_at;
  const char *end = FindLineEnd();
  PassLineEnd(end);
  return {m_mark, std::size_t(end - m_mark)};
}

const char *MifScanner::SkipBlanks(const char *at) const {
  while (at != m_last && IsMifBlank(*at)) ++at;
  return at;
}

std::string_view MifScanner::TokenAt(const char *at) const {
  return {at, std::size_t(std::find_if(at, m_last, IsMifBlank) - at)};
}

bool MifScanner::ReadCount(int &count) {
  m_mark = m_at = SkipBlanks(m_at);
  if (AtEnd()) return false;
  const std::string_view token = TokenAt(m_at);
  count = BytesToInt(token);
  m_at += token.size();
  PassLineEnd(FindLineEnd());
  return true;
}

const char *MifScanner::ReadNumber(const char *at, double &value) {
  const char *end = ReadFloat(at, m_last, m_separator, value);
  if (end != nullptr && (end == m_last || IsMifBlank(*end))) return end;
  m_mark = m_at = at;
  m_isMalformed = true;
  return nullptr;
}

std::size_t MifScanner::ReadVertices(TMapPoint *vertices, std::size_t count, TBounds &bounds) {
  std::size_t done = 0;
  for (; done < count; ++done) {
    TMapPoint vertex;
    const char *at = SkipBlanks(m_at);
    if (at == m_last) break;
    m_mark = at;
    at = ReadNumber(at, vertex.X);
    if (at == nullptr) return done;
    at = SkipBlanks(at);
    if (at == m_last) break;
    at = ReadNumber(at, vertex.Y);
    if (at == nullptr) return done;
    m_at = at;
    const bool endsHere = at == m_last || *at == '\n' || *at == '\r';
    PassLineEnd(endsHere ? at : FindLineEnd());
    vertices[done] = vertex;
    bounds.Widen(vertex.X, vertex.Y);
  }
  if (done < count) m_at = m_last;
  return done;
}

void MifScanner::ThrowIfMalformed() {
  if (m_isMalformed) static_cast<void>(BytesToFloat(TokenAt(m_at), m_separator));
}

std::size_t MifScanner::MostVertices() const {
  constexpr std::size_t LeastBytes = 4;
  return std::size_t(m_last - m_at) / LeastBytes + 1;
}

bool MifScanner::LineHoldsOneItem() const {
  const char *first = SkipBlanks(m_at);
  if (first == m_last) return false;
  const std::string_view item = TokenAt(first);
  const char *at = item.data() + item.size();
  while (at != m_last && (*at == ' ' || *at == '\t')) ++at;
  return at == m_last || *at == '\n' || *at == '\r';
}

int MifScanner::GetLine() {
  if (m_mark < m_countedTo) {
    m_countedTo = m_first;
    m_lineEnds = 0;
  }
  for (; m_countedTo < m_mark; ++m_countedTo) {
    const bool isPair = *m_countedTo == '\r' && m_countedTo + 1 != m_last && m_countedTo[1] == '\n';
    if (*m_countedTo == '\n' || (*m_countedTo == '\r' && !isPair)) ++m_lineEnds;
  }
  return m_lineEnds + 1;
}

}  // namespace tessera::detail
