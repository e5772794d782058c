// SPDX-License-Identifier: MIT
#include "ProgramBench.h"

#include "HeapUse.h"
#include "TesseraSide.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <fcntl.h>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>

namespace tessera::bench {
namespace {

struct ProcessUse {
  double seconds = 0;
  double peakBytes = 0;
};

/// Runs a program to its end. @throws std::runtime_error when it fails
ProcessUse RunProcess(const QStringList &words) {
  std::vector<std::string> texts;
  for (const QString &word : words) texts.push_back(word.toStdString());
  std::vector<char *> argv;
  for (std::string &text : texts) argv.push_back(text.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
  rusage use{};
  int status = -1;
  const double seconds = SecondsOf([&] {
    pid_t process = 0;
    if (posix_spawn(&process, argv[0], &actions, nullptr, argv.data(), environ) == 0) wait4(process, &status, 0, &use);
  });
  posix_spawn_file_actions_destroy(&actions);
  if (status != 0) throw std::runtime_error(texts[0] + " failed");
  constexpr double KiB = 1024;
  return {seconds, static_cast<double>(use.ru_maxrss) * KiB};
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
  const auto ours = [&] { return RunProcess(command.arguments).seconds; };
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
    m_gdalSeconds.push_back(RunProcess(words).seconds);
    return m_gdalSeconds.back();
  };
  m_table.Measure(
      {Title(command, QStringLiteral(", or GDAL's reading")), QStringLiteral("s"), ours, gdal, 1 / m_timesGdal}, runs);
  std::sort(m_gdalSeconds.begin(), m_gdalSeconds.end());
}

/// What the process takes at its peak beyond what it takes without a file, beside what the map keeps.
void ProgramBench::MeasureMemory(const Command &command) {
  constexpr double OverLayer = 1.1;
  constexpr double MiB = 1024 * 1024;
  const double empty = RunProcess({Program, QStringLiteral("--version")}).peakBytes;
  const double peak = RunProcess(command.arguments).peakBytes - empty;
  const std::size_t before = HeapUse();
  TesseraSide map(m_mifPath, m_pictureSize);
  if (command.draws) map.Draw();
  const auto kept = static_cast<double>(HeapUse() - before);
  m_table.Measure({Title(command, QStringLiteral(", peak memory, or the map's")), QStringLiteral("MiB"),
                   [&] { return peak / MiB; }, [&] { return kept / MiB; }, OverLayer},
                  1);
}

}  // namespace tessera::bench
