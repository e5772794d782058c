// SPDX-License-Identifier: MIT
#include <tessera/base/detail/Numbers.h>
#include <tessera/base/detail/PlainNumber.h>
#include <tessera/formats/detail/MifItems.h>
#include <tessera/formats/detail/MifScanner.h>
#include <tessera/formats/detail/MifText.h>

#include <algorithm>
#include <cstring>
#include <system_error>

namespace tessera::detail {

namespace {

/// Behind a pair of a return and a feed there has to be one byte more in the window, so that AtEnd finds it without
/// moving the window, and with it the line.
constexpr std::ptrdiff_t PairAndOne = 3;
/// Zeros behind the window, so that no number reaches beyond them and the fast way need not look where it ends.
constexpr std::size_t Margin = 32;
static_assert(Margin >= PlainNumberBytes);

bool IsBlankInLine(char c) {
  return c == ' ' || c == '\t';
}

const char *SkipBlanksInLine(const char *at) {
  while (IsBlankInLine(*at)) ++at;
  return at;
}

}  // namespace

MifScanner::MifScanner(ByteSource &source, char separator, std::size_t window, const LookAheadLimits &limits)
    : m_source(source),
      m_separator(separator),
      m_window(std::min(window, std::size_t(source.GetSize()) + 1) + Margin),
      m_last(m_window.data()),
      m_at(m_last),
      m_lineFeed(m_last),
      m_carriageReturn(m_last),
      m_stop(limits.AreWorthIt(source.GetSize()) ? 0 : Never),
      m_limits(limits) {}

inline void MifScanner::PassLineEnd(const char *lineEnd) {
  m_at = lineEnd;
  if (m_at != m_last && *m_at == '\r') ++m_at;
  if (m_at != m_last && *m_at == '\n' && (m_at == lineEnd || m_at[-1] == '\r')) ++m_at;
}

inline const char *MifScanner::SkipBlanks(const char *at) const {
  while (at != m_last && IsMifBlank(*at)) ++at;
  return at;
}

inline const char *MifScanner::ReadNumber(const char *at, double &value) const {
  const char *end = ReadFloat(at, m_last, m_separator, value);
  return end != nullptr && (end == m_last || IsMifBlank(*end)) ? end : nullptr;
}

inline void MifScanner::Search(const char *&lineEnd, char byte, const char *from) const {
  const void *found = from == m_last ? nullptr : std::memchr(from, byte, std::size_t(m_last - from));
  lineEnd = found ? static_cast<const char *>(found) : m_last;
}

std::size_t MifScanner::WindowSize() const {
  return m_window.size() - Margin;
}

bool MifScanner::ReadMore() {
  if (m_reachesEnd) return false;
  const auto kept = std::size_t(m_last - m_at);
  const qint64 end = PositionOf(m_last);
  if (kept > WindowSize() / 2) {
    std::vector<char> larger(2 * WindowSize() + Margin);
    std::copy(m_at, m_last, larger.data());
    m_window.swap(larger);
  } else if (kept > 0 && m_at != m_window.data()) {
    std::memmove(m_window.data(), m_at, kept);
  }
  m_windowStart = end - qint64(kept);
  m_at = m_window.data();
  const std::size_t added = m_source.Read(end, m_window.data() + kept, WindowSize() - kept);
  m_last = m_at + kept + added;
  Search(m_lineFeed, '\n', m_at);
  Search(m_carriageReturn, '\r', m_at);
  m_reachesEnd = added == 0 || PositionOf(m_last) == m_source.GetSize();
  return true;
}

bool MifScanner::AtEnd() {
  while (m_at == m_last) {
    if (!ReadMore()) return true;
  }
  return false;
}

const char *MifScanner::FindLineEnd() {
  for (;;) {
    if (m_lineFeed < m_at) Search(m_lineFeed, '\n', m_at);
    if (m_carriageReturn < m_at) Search(m_carriageReturn, '\r', m_at);
    const char *end = std::min(m_lineFeed, m_carriageReturn);
    if (m_last - end >= PairAndOne || !ReadMore()) return end;
  }
}

std::string_view MifScanner::ReadLine() {
  m_mark = GetPosition();
  const char *end = FindLineEnd();
  const std::string_view line(m_at, std::size_t(end - m_at));
  PassLineEnd(end);
  return line;
}

std::string_view MifScanner::TokenAt(const char *at) const {
  return {at, std::size_t(std::find_if(at, m_last, IsMifBlank) - at)};
}

std::string_view MifScanner::NextToken() {
  for (;;) {
    m_at = SkipBlanks(m_at);
    const std::string_view token = TokenAt(m_at);
    if (token.data() + token.size() != m_last || !ReadMore()) return token;
  }
}

bool MifScanner::ReadCount(int &count) {
  const std::string_view token = NextToken();
  m_mark = GetPosition();
  if (token.empty()) return false;
  count = BytesToInt(token);
  m_at += token.size();
  PassLineEnd(FindLineEnd());
  return true;
}

MifScanner::Found MifScanner::FindVertex(TMapPoint &vertex, const char *&end) {
  const auto stop = [&](const char *at) {
    if (at == m_last) {
      end = at;
      return Found::End;
    }
    m_mark = PositionOf(at);
    const std::string_view token = TokenAt(at);
    end = token.data() + token.size();
    return Found::Malformed;
  };
  const char *x = SkipBlanks(m_at);
  const char *xEnd = x == m_last ? nullptr : ReadNumber(x, vertex.X);
  if (xEnd == nullptr) return stop(x);
  m_mark = PositionOf(x);
  const char *y = SkipBlanks(xEnd);
  end = y == m_last ? nullptr : ReadNumber(y, vertex.Y);
  return end == nullptr ? stop(y) : Found::Vertex;
}

bool MifScanner::ReadAnyVertex(TMapPoint &vertex) {
  const char *end = nullptr;
  Found found = FindVertex(vertex, end);
  while (end == m_last && ReadMore()) found = FindVertex(vertex, end);
  if (found == Found::Vertex) {
    m_at = end;
    PassLineEnd(FindLineEnd());
    return true;
  }
  m_isMalformed = found == Found::Malformed;
  m_at = m_isMalformed ? m_window.data() + (m_mark - m_windowStart) : m_last;
  return false;
}

inline const char *MifScanner::ReadNumberInLine(const char *at, double &value) const {
  at = SkipBlanksInLine(at);
  const char *end = ReadPlainNumber(at, m_separator, value);
  if (end != nullptr && IsMifBlank(*end)) return end;
  return at < m_last ? ReadNumber(at, value) : nullptr;
}

template <typename Store>
inline void MifScanner::ReadPlainVertices(const Store &store) {
  const char *stop = m_at + std::clamp<qint64>(m_stop - GetPosition(), 0, m_last - m_at);
  const char *at = m_at;
  const char *line = nullptr;
  while (at < stop) {
    // Not at once as a point, which would be waited for until both numbers have reached the memory.
    double x = 0;
    double y = 0;
    const char *end = ReadNumberInLine(at, x);
    if (end == nullptr || !IsBlankInLine(*end)) break;
    end = ReadNumberInLine(end, y);
    if (end != nullptr) end = SkipBlanksInLine(end);
    if (end == nullptr || m_last - end < PairAndOne || (*end != '\n' && *end != '\r')) break;
    line = at;
    at = end + (end[0] == '\r' && end[1] == '\n' ? 2 : 1);
    if (!store(x, y, line, at)) break;
  }
  if (line != nullptr) m_mark = PositionOf(line);
  m_at = at;
}

std::size_t MifScanner::CopyPlainVertices(TMapPoint *vertices, std::size_t count) {
  const TMapPoint *last = vertices + count;
  TMapPoint *next = vertices;
  ReadPlainVertices([&](double x, double y, const char *, const char *) {
    next->X = x;
    next->Y = y;
    ++next;
    return next != last;
  });
  return std::size_t(next - vertices);
}

std::size_t MifScanner::ReadVertices(TMapPoint *vertices, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    if (GetPosition() >= m_stop) done += TakeAhead(vertices + done, count - done);
    if (done < count) done += CopyPlainVertices(vertices + done, count - done);
    if (done == count || GetPosition() >= m_stop) continue;
    if (!ReadAnyVertex(vertices[done])) break;
    ++done;
  }
  return done;
}

void MifScanner::StartLookAhead() {
  struct Reader {
    AsideSource source;
    MifScanner scanner;
    Reader(ByteSource &of, char separator) : source(of), scanner(source, separator) {}
  };
  m_stop = Never;
  try {
    const auto reader = std::make_shared<Reader>(m_source, m_separator);
    const auto list = [reader](qint64 begin, qint64 end, VertexTable &table) {
      reader->scanner.ListVertices(begin, end, table);
    };
    m_ahead = std::make_unique<LookAhead<VertexTable>>(GetPosition(), m_source.GetSize(), list, m_limits);
  } catch (const std::system_error &) {  // NOLINT(bugprone-empty-catch): one thread is enough
  }
}

std::size_t MifScanner::TakeAhead(TMapPoint *vertices, std::size_t count) {
  if (!m_ahead) StartLookAhead();
  if (!m_ahead) return 0;
  VertexTable *table = m_ahead->At(GetPosition());
  m_stop = m_ahead->GetChunkEnd();
  if (table == nullptr) return 0;
  const VertexTable::Taken taken = table->Take(GetPosition(), vertices, count);
  if (taken.count > 0) {
    m_mark = taken.lastBegin;
    MoveTo(taken.end);
  }
  m_stop = table->GetNextBegin(m_stop);
  return taken.count;
}

void MifScanner::MoveTo(qint64 position) {
  if (position <= PositionOf(m_last)) {
    m_at = m_last - (PositionOf(m_last) - position);
    return;
  }
  m_windowStart = position;
  m_at = m_last = m_lineFeed = m_carriageReturn = m_window.data();
  m_reachesEnd = false;
}

void MifScanner::MoveToLine(qint64 position) {
  if (GetPosition() >= position) return;
  MoveTo(position - 1);
  ReadLine();
}

void MifScanner::ListVertices(qint64 begin, qint64 end, VertexTable &table) {
  table.Restart(begin);
  const auto add = [&](double x, double y, const char *line, const char *lineEnd) {
    table.Add({x, y}, PositionOf(line), PositionOf(lineEnd));
    return true;
  };
  MoveToLine(begin);
  m_stop = end;
  while (GetPosition() < end && !AtEnd()) {
    const qint64 position = GetPosition();
    ReadPlainVertices(add);
    if (GetPosition() != position) continue;
    // It is another line, or the end of the window cuts it.
    static_cast<void>(FindLineEnd());
    ReadPlainVertices(add);
    if (GetPosition() == position) ReadLine();
  }
}

void MifScanner::ThrowIfMalformed() {
  if (m_isMalformed) static_cast<void>(BytesToFloat(TokenAt(m_at), m_separator));
}

std::size_t MifScanner::MostVertices() const {
  constexpr std::size_t LeastBytes = 4;
  return std::size_t(m_source.GetSize() - GetPosition()) / LeastBytes + 1;
}

bool MifScanner::LineHoldsOneItem() {
  for (;;) {
    const char *first = SkipBlanks(m_at);
    const std::string_view item = TokenAt(first);
    const char *at = item.data() + item.size();
    while (at != m_last && (*at == ' ' || *at == '\t')) ++at;
    if (at == m_last && ReadMore()) continue;
    return !item.empty() && (at == m_last || *at == '\n' || *at == '\r');
  }
}

int MifScanner::GetLine() {
  if (m_mark < m_countedTo) {
    m_countedTo = 0;
    m_lineEnds = 0;
    m_lastCounted = '\0';
  }
  std::vector<char> block(DefaultWindow);
  while (m_countedTo < m_mark) {
    const std::size_t wanted = std::min(block.size(), std::size_t(m_mark - m_countedTo));
    const std::size_t size = m_source.Read(m_countedTo, block.data(), wanted);
    if (size == 0) break;
    for (const char c : std::string_view(block.data(), size)) {
      if (c == '\r' || (c == '\n' && m_lastCounted != '\r')) ++m_lineEnds;
      m_lastCounted = c;
    }
    m_countedTo += qint64(size);
  }
  return m_lineEnds + 1;
}

}  // namespace tessera::detail
