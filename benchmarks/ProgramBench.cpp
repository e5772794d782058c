// SPDX-License-Identifier: MIT
#include "ProgramBench.h"

#include "HeapUse.h"
#include "TesseraSide.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>

namespace tessera::bench {
namespace {

/// Starts a program that says nothing. @throws std::runtime_error when it cannot be started
pid_t Start(const QStringList &words) {
  std::vector<std::string> texts;
  for (const QString &word : words) texts.push_back(word.toStdString());
  std::vector<char *> argv;
  for (std::string &text : texts) argv.push_back(text.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
  pid_t process = 0;
  const int error = posix_spawn(&process, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error(texts[0] + " cannot be started");
  return process;
}

void ThrowUnlessDone(int status) {
  if (status != 0) throw std::runtime_error("a program that was to be measured has failed");
}

double SecondsOfProcess(const QStringList &words) {
  int status = -1;
  const double seconds = SecondsOf([&] { waitpid(Start(words), &status, 0); });
  ThrowUnlessDone(status);
  return seconds;
}

/// The memory of a process now, without the pages of files.
double AnonymousBytes(pid_t process) {
  QFile file(QStringLiteral("/proc/%1/status").arg(process));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  constexpr QByteArrayView Name = "RssAnon:";
  for (const QByteArray &line : file.readAll().split('\n')) {
    constexpr double KiB = 1024;
    if (line.startsWith(Name)) return KiB * line.mid(Name.size()).simplified().split(' ').first().toDouble();
  }
  return 0;
}

/// The most that is seen every millisecond. What the system counts for a child begins with what its parent has.
double PeakOfProcess(const QStringList &words) {
  const pid_t process = Start(words);
  double peak = 0;
  int status = -1;
  while (waitpid(process, &status, WNOHANG) == 0) {
    peak = std::max(peak, AnonymousBytes(process));
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  ThrowUnlessDone(status);
  return peak;
}

const QString Program = QStringLiteral(TESSERA_PROGRAM);

}  // namespace

ProgramBench::ProgramBench(QString label, QString mifPath, double timesGdal, QSize pictureSize, BenchTable &table)
    : m_label(std::move(label)),
      m_mifPath(std::move(mifPath)),
      m_timesGdal(timesGdal),
      m_pictureSize(pictureSize),
      m_table(table) {}

QString ProgramBench::Title(const Command &command, const QString &what) const {
  return m_label + u' ' + command.name + QStringLiteral(" as a process") + what;
}

void ProgramBench::Run(int runs) {
  const QTemporaryDir directory;
  const QString picture = directory.filePath(QStringLiteral("picture.png"));
  const QString size = QStringLiteral("%1x%2").arg(m_pictureSize.width()).arg(m_pictureSize.height());
  for (const Command &command : {Command{QStringLiteral("info"), {Program, QStringLiteral("info"), m_mifPath}, false},
                                 Command{QStringLiteral("render"),
                                         {Program, QStringLiteral("render"), m_mifPath, QStringLiteral("--out"),
                                          picture, QStringLiteral("--size"), size},
                                         true}}) {
    MeasureTime(command, runs);
    MeasureMemory(command);
  }
}

void ProgramBench::MeasureTime(const Command &command, int runs) {
  constexpr double OverItself = 1.25;
  const auto ours = [&] { return SecondsOfProcess(command.arguments); };
  const auto itself = [&] {
    std::unique_ptr<TesseraSide> map;
    return SecondsOf([&] {
      map = std::make_unique<TesseraSide>(m_mifPath, m_pictureSize);
      if (command.draws) map->Draw();
    });
  };
  const QString itsWork = command.draws ? QStringLiteral(", or loading and drawing") : QStringLiteral(", or loading");
  m_table.Measure({Title(command, itsWork), QStringLiteral("s"), ours, itself, OverItself}, runs);

  // GDAL takes long and does the same for every command.
  const bool isKnown = !m_gdalSeconds.empty();
  const auto gdal = [&] {
    if (isKnown) return m_gdalSeconds[m_gdalSeconds.size() / 2];
    const QStringList words{QCoreApplication::applicationFilePath(), QString::fromLatin1(ReadWithGdal), m_mifPath};
    m_gdalSeconds.push_back(SecondsOfProcess(words));
    return m_gdalSeconds.back();
  };
  m_table.Measure(
      {Title(command, QStringLiteral(", or GDAL's reading")), QStringLiteral("s"), ours, gdal, 1 / m_timesGdal}, runs);
  std::sort(m_gdalSeconds.begin(), m_gdalSeconds.end());
}

/// What the process takes at its peak, without the pages of files, beside what the map keeps.
void ProgramBench::MeasureMemory(const Command &command) {
  constexpr double OverLayer = 1.1;
  constexpr double MiB = 1024 * 1024;
  const double peak = PeakOfProcess(command.arguments);
  const std::size_t before = HeapUse();
  TesseraSide map(m_mifPath, m_pictureSize);
  if (command.draws) map.Draw();
  const auto kept = static_cast<double>(HeapUse() - before);
  m_table.Measure({Title(command, QStringLiteral(", peak memory, or the map's")), QStringLiteral("MiB"),
                   [&] { return peak / MiB; }, [&] { return kept / MiB; }, OverLayer},
                  1);
}

}  // namespace tessera::bench
