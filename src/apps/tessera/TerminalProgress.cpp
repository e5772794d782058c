// SPDX-License-Identifier: MIT
#include <apps/tessera/TerminalProgress.h>

#include <cstdio>
#include <unistd.h>

namespace tessera::apps {
namespace {

/// Work that is over sooner shows no bar.
constexpr qint64 PatienceMs = 300;
constexpr char ClearLine[] = "\r\033[K";

QString Bar(int percent) {
  constexpr int Cells = 40;
  const int filled = percent * Cells / 100;
  return u'[' + QString(filled, u'#') + QString(Cells - filled, u'.') + u']';
}

}  // namespace

TerminalProgress::TerminalProgress(TTessera &map) {
  if (isatty(STDERR_FILENO) == 0) return;
  connect(&map, &TTessera::OnStartProgress, this, &TerminalProgress::Start);
  connect(&map, &TTessera::OnShowProgress, this, &TerminalProgress::Show);
  connect(&map, &TTessera::OnStopProgress, this, &TerminalProgress::Stop);
}

void TerminalProgress::Start(TTessera * /*sender*/, int min, int max, const QString &caption) {
  m_min = min;
  m_max = max;
  m_caption = caption.isEmpty() ? QStringLiteral("Drawing") : caption;
  m_shownPercent = -1;
  m_sinceStart.start();
}

void TerminalProgress::Show(TTessera * /*sender*/, int position) {
  if (m_max <= m_min || !m_sinceStart.hasExpired(PatienceMs)) return;
  const auto percent = int(100 * (qint64(position) - m_min) / (qint64(m_max) - m_min));
  if (percent == m_shownPercent || percent < 0 || percent > 100) return;
  m_shownPercent = percent;
  const QString line = m_caption + u' ' + Bar(percent) + u' ' + QString::number(percent) + u'%';
  std::fprintf(stderr, "%s%s", ClearLine, line.toUtf8().constData());
}

void TerminalProgress::Stop(TTessera * /*sender*/) {
  if (m_shownPercent >= 0) std::fputs(ClearLine, stderr);
  m_shownPercent = -1;
}

}  // namespace tessera::apps
