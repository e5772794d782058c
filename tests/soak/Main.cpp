// SPDX-License-Identifier: MIT
#include "Checks.h"
#include "Deeds.h"
#include "Person.h"

#include <apps/common/ProgramSetup.h>
#include <tessera/layers/MapFiles.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>
#include <QPixmapCache>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <limits>

namespace tessera::soak {
namespace {

constexpr int DeedsPerCheck = 25;
/// After so many everything is closed, and memory measured.
constexpr int DeedsPerRound = 500;

struct Task {
  unsigned seed = 1;
  double minutes = 0;
  int deeds = DeedsPerRound;
  int pauseMs = 0;
  QString log;
};

Person *worker = nullptr;

/// What Qt warns of is wrong use of it, but for what the platform has to say.
void TakeQtMessage(QtMsgType type, const QMessageLogContext &context, const QString &text) {
  if (worker == nullptr || type == QtDebugMsg || type == QtInfoMsg) return;
  const QByteArray category(context.category);
  if (category.startsWith("qt.qpa") || text.startsWith(QStringLiteral("This plugin does not support"))) return;
  // Dragging, without a screen.
  if (text == QStringLiteral("Unimplemented code.")) return;
  // A click beside a widget that has become smaller misses it, as a person's may.
  if (text.contains(QStringLiteral("occurs outside target window"))) return;
  worker->Fail(QStringLiteral("Qt: ") + text);
}

/// Works in rounds, each of which ends with an empty map.
class Work {
 public:
  Work(Person &person, const Task &task) : m_person(person), m_task(task), m_checks(person) {
    for (const auto &deeds : {MapDeeds(), PanelDeeds(), FileDeeds()})
      m_deeds.insert(m_deeds.end(), deeds.begin(), deeds.end());
    std::vector<int> weights;
    for (const Deed &deed : m_deeds) weights.push_back(deed.weight);
    m_choice = std::discrete_distribution<std::size_t>(weights.begin(), weights.end());
  }

  void Run() {
    m_clock.start();
    const int perRound = m_task.minutes > 0 ? DeedsPerRound : std::min(DeedsPerRound, m_task.deeds / 4);
    while (!IsOver() && m_person.GetFailures().isEmpty()) {
      for (int i = 0; i < perRound && m_person.GetFailures().isEmpty(); ++i) Do();
      if (m_person.GetFailures().isEmpty()) EndRound();
    }
    if (m_person.GetFailures().isEmpty()) CompareLevels();
  }
  [[nodiscard]] int GetCount() const { return m_count; }

 private:
  [[nodiscard]] double Progress() const {
    return m_task.minutes > 0 ? double(m_clock.elapsed()) / (m_task.minutes * 60'000) : double(m_count) / m_task.deeds;
  }
  [[nodiscard]] bool IsOver() const { return Progress() >= 1; }

  void Do() {
    const Deed &deed = m_deeds[m_choice(m_chance)];
    m_person.BeginDeed(m_task.seed + unsigned(m_count));
    m_person.Note(QStringLiteral("%1 %2").arg(++m_count).arg(QLatin1String(deed.name)));
    deed.run(m_person);
    m_person.Settle();
    m_person.ReadMessages();
    m_checks.Follow();
    if (m_count % DeedsPerCheck == 0) m_checks.Run();
    if (m_task.pauseMs > 0) QTest::qWait(m_task.pauseMs);
  }
  void EndRound() {
    m_checks.Run();
    StartAfresh(m_person);
    m_checks.Begin();
    m_checks.Run();
    m_levels.push_back({Progress(), HeapInUse()});
    constexpr double MB = 1 << 20;
    QTextStream(stdout) << QStringLiteral("%1 min, %2 actions: heap in use %3 MB, resident %4 MB\n")
                               .arg(double(m_clock.elapsed()) / 60'000, 0, 'f', 1)
                               .arg(m_count)
                               .arg(double(m_levels.back().heap) / MB, 0, 'f', 2)
                               .arg(double(ResidentSet()) / MB, 0, 'f', 1);
  }
  /// With nothing open only what is kept for good makes memory grow. What is kept for the next time, as the letters of
  /// fonts, comes and goes, so the lowest levels count; by the second quarter of the work each of it has been there.
  void CompareLevels() {
    constexpr std::size_t Bound = 2 << 20;
    if (LowestIn(0.75, 2) > LowestIn(0.25, 0.5) + Bound) m_person.Fail(QStringLiteral("Memory keeps growing"));
  }
  [[nodiscard]] std::size_t LowestIn(double from, double to) const {
    std::size_t lowest = std::numeric_limits<std::size_t>::max();
    for (const Level &level : m_levels) {
      if (from <= level.at && level.at <= to) lowest = std::min(lowest, level.heap);
    }
    return lowest;
  }

  struct Level {
    double at;
    std::size_t heap;
  };
  Person &m_person;
  const Task &m_task;
  Checks m_checks;
  std::vector<Deed> m_deeds;
  std::mt19937 m_chance{m_task.seed};
  std::discrete_distribution<std::size_t> m_choice;
  QElapsedTimer m_clock;
  int m_count = 0;
  std::vector<Level> m_levels;
};

Task TaskOf(const QApplication &application) {
  QCommandLineParser parser;
  parser.addHelpOption();
  parser.addOptions(
      {{QStringLiteral("seed"), QStringLiteral("What chance begins with."), QStringLiteral("S"), QStringLiteral("1")},
       {QStringLiteral("minutes"), QStringLiteral("How long to work."), QStringLiteral("N"), QStringLiteral("0")},
       {QStringLiteral("actions"), QStringLiteral("How many actions to do, without a time."), QStringLiteral("N"),
        QStringLiteral("500")},
       {QStringLiteral("pause"), QStringLiteral("Rest after each action."), QStringLiteral("MS"), QStringLiteral("0")},
       {QStringLiteral("log"), QStringLiteral("A file for the notes of all that is done."), QStringLiteral("FILE")}});
  parser.process(application);
  return {parser.value(QStringLiteral("seed")).toUInt(), parser.value(QStringLiteral("minutes")).toDouble(),
          std::max(4, parser.value(QStringLiteral("actions")).toInt()), parser.value(QStringLiteral("pause")).toInt(),
          parser.value(QStringLiteral("log"))};
}

int RunTask(const Task &task) {
  QTextStream out(stdout);
  out << "seed " << task.seed << Qt::endl;
  QTemporaryDir folder;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
  QFile log(task.log);
  const bool isLogged = !task.log.isEmpty() && log.open(QIODevice::WriteOnly);
  const apps::TStandardProviders providers;
  apps::TEditorWindow window;
  window.show();
  QApplication::processEvents();
  Person person(window, folder.path(), task.seed, isLogged ? &log : nullptr);
  worker = &person;
  WriteFirstFiles(person);
  Work work(person, task);
  work.Run();
  worker = nullptr;
  out << work.GetCount() << " actions\n";
  if (person.GetFailures().isEmpty()) return 0;
  folder.setAutoRemove(false);
  for (int i = 0; i < person.map.GetLayers()->GetCount(); ++i) {
    const QString name = person.FileNamed(QStringLiteral("left%1.mif").arg(i));
    out << SaveMapFile(*person.map.GetLayers()->GetLayer(i), name).error;
  }
  out << person.GetNotes().join(u'\n') << "\nFailed with the seed " << task.seed << "; files are in " << folder.path()
      << '\n';
  return 1;
}

}  // namespace
}  // namespace tessera::soak

#ifdef __SANITIZE_ADDRESS__
/// What libraries of the platform keep until the end.
extern "C" Q_DECL_EXPORT const char *__lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
  return "leak:libdbus-1\nleak:libfontconfig";
}
#endif

/// Works with the editor as a person does, but at random. Ends with 1 if anything was amiss.
int main(int argc, char **argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName(QStringLiteral("tessera-soak"));
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  tessera::apps::UseDecimalPoint();
  // Icons of all palettes there were would take more and more.
  QPixmapCache::setCacheLimit(0);
  qInstallMessageHandler(tessera::soak::TakeQtMessage);
  return tessera::soak::RunTask(tessera::soak::TaskOf(application));
}
