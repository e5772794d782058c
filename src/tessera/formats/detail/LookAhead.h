// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/detail/ByteSource.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace tessera::detail {

/// How much of a text is looked at ahead of its reader.
struct TESSERA_CORE_EXPORT LookAheadLimits {
  qint64 chunkBytes = qint64(1) << 17U;
  /// Chunks that there are tables of at the same time; 0 when nothing is to be looked at ahead.
  qint64 chunks = 6;
  /// A text that is shorter is not worth a thread.
  qint64 leastBytes = qint64(1) << 20U;

  /// What is good where the process may use so many cores as it may here: nothing ahead on one core.
  [[nodiscard]] static LookAheadLimits OfMachine();
  [[nodiscard]] static LookAheadLimits Nothing() { return {.chunks = 0}; }
  [[nodiscard]] bool AreWorthIt(qint64 size) const { return chunks > 0 && size >= leastBytes; }
};

/// Makes tables of what stands further on in a text, in a thread of its own, while the text is read from front to back.
///
/// The text is cut into chunks of equal size. The thread makes the table of the next chunk that nobody has begun; a
/// chunk that the reader comes to first is left to it, so that both are always at work. A table must follow from the
/// bytes alone, and tell where in the text each of its entries stands: the reader takes an entry if it stands where it
/// would have read it itself, and then there is no difference. Nothing else is shared by the threads.
template <class Table>
class LookAhead {
 public:
  /// Makes the table of the lines that begin in [begin, end), in the other thread. What it throws leaves the table as
  /// it is then.
  using Maker = std::function<void(qint64 begin, qint64 end, Table &table)>;

  /// Starts the thread; the reader stands at `position` in a text of `size`. @pre limits.chunks > 0
  /// @throws std::system_error when there can be no thread
  LookAhead(qint64 position, qint64 size, Maker maker, const LookAheadLimits &limits)
      : m_size(size),
        m_limits(limits),
        m_maker(std::move(maker)),
        m_slots(std::size_t(limits.chunks)),
        m_chunk(position / limits.chunkBytes),
        m_next(m_chunk + 1),
        m_thread([this] { Run(); }) {}
  ~LookAhead() {
    {
      const std::lock_guard lock(m_mutex);
      m_isOver = true;
    }
    m_changed.notify_all();
    m_thread.join();
  }
  LookAhead(const LookAhead &) = delete;
  LookAhead &operator=(const LookAhead &) = delete;

  /// The table of the chunk that holds `position`; nullptr in the first one and when the caller is to read this chunk
  /// without. Waits for one that is being made. It is valid until a later chunk is asked for. @pre positions never
  /// decrease
  [[nodiscard]] Table *At(qint64 position) {
    const qint64 chunk = position / m_limits.chunkBytes;
    if (chunk != m_chunk) Enter(chunk);
    return m_table;
  }
  /// Where the chunk that was asked for last ends.
  [[nodiscard]] qint64 GetChunkEnd() const { return (m_chunk + 1) * m_limits.chunkBytes; }

 private:
  struct Slot {
    qint64 chunk = -1;
    bool isReady = false;
    Table table;
  };

  [[nodiscard]] Slot &SlotOf(qint64 chunk) { return m_slots[std::size_t(chunk % m_limits.chunks)]; }

  void Enter(qint64 chunk) {
    std::unique_lock lock(m_mutex);
    m_chunk = chunk;
    m_table = nullptr;
    if (chunk >= m_next) {
      m_next = chunk + 1;
    } else if (Slot &slot = SlotOf(chunk); slot.chunk == chunk) {
      m_changed.wait(lock, [&slot] { return slot.isReady; });
      m_table = &slot.table;
    }
    lock.unlock();
    m_changed.notify_all();
  }

  /// Whether the thread has something to do: tables of chunks that the reader has left make room for others.
  [[nodiscard]] bool MayGoOn() const { return m_isOver || m_next < m_chunk + m_limits.chunks; }

  void Run() {
    std::unique_lock lock(m_mutex);
    for (;;) {
      m_changed.wait(lock, [this] { return MayGoOn(); });
      const qint64 begin = m_next * m_limits.chunkBytes;
      if (m_isOver || begin >= m_size) return;
      Slot &slot = SlotOf(m_next);
      slot.chunk = m_next++;
      slot.isReady = false;
      lock.unlock();
      try {
        m_maker(begin, begin + m_limits.chunkBytes, slot.table);
      } catch (...) {  // NOLINT(bugprone-empty-catch): the reader comes upon the same, in its own thread
      }
      lock.lock();
      slot.isReady = true;
      m_changed.notify_all();
    }
  }

  const qint64 m_size;
  const LookAheadLimits m_limits;
  const Maker m_maker;
  Table *m_table = nullptr;  // the reader's
  // Guarded by m_mutex; a table belongs to the thread until its slot is ready, then to the reader.
  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::vector<Slot> m_slots;
  qint64 m_chunk;  // where the reader is, which alone changes it
  qint64 m_next;   // the first chunk that nobody has begun
  bool m_isOver = false;
  std::thread m_thread;
};

/// Reads a source from another thread than its owner's.
class AsideSource final : public ByteSource {
 public:
  /// `source` must outlive this.
  explicit AsideSource(ByteSource &source) : m_source(source) {}

  [[nodiscard]] qint64 GetSize() const override { return m_source.GetSize(); }
  std::size_t Read(qint64 position, char *out, std::size_t size) override {
    return m_source.ReadAside(position, out, size);
  }
  std::size_t ReadAside(qint64 position, char *out, std::size_t size) override {
    return m_source.ReadAside(position, out, size);
  }

 private:
  ByteSource &m_source;
};

}  // namespace tessera::detail
