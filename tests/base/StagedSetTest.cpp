// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/StagedSet.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <optional>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessera {
namespace {

using detail::StagedSet;

/// Works as somebody without special rights, whoever runs the tests.
void AsOrdinaryUser(const std::function<void()> &work) {
  constexpr uid_t Nobody = 65534;
  const uid_t before = geteuid();
  ASSERT_EQ(seteuid(before == 0 ? Nobody : before), 0);
  work();
  ASSERT_EQ(seteuid(before), 0);
}

class StagedSetTest : public testing::Test {
 protected:
  [[nodiscard]] QString PathOf(const char *name) const { return m_folder->filePath(QString::fromLatin1(name)); }
  [[nodiscard]] QStringList Paths() const { return {PathOf("a"), PathOf("b"), PathOf("c")}; }
  void Put(const char *name, const QByteArray &bytes) const {
    QFile file(PathOf(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  [[nodiscard]] std::string Get(const char *name) const { return All({PathOf(name)}); }
  /// The contents of the files.
  [[nodiscard]] static std::string All(const QStringList &paths) {
    std::string all;
    for (const QString &path : paths) {
      QFile file(path);
      all += (all.empty() ? "" : ", ") + (file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "-");
    }
    return all;
  }
  [[nodiscard]] std::string All() const { return All(Paths()); }
  [[nodiscard]] qsizetype FileCount() const {
    return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size();
  }
  /// A new folder with old files, of which c is none.
  void StartAnew() {
    m_folder.emplace();
    Put("a", "old a");
    Put("b", "old b");
  }
  /// Stages "new" for the three files.
  [[nodiscard]] std::unique_ptr<StagedSet> Stage() const {
    auto set = std::make_unique<StagedSet>(Paths());
    for (std::size_t i = 0; i < 3; ++i) set->File(i).Append("new");
    return set;
  }
  /// The words of the error that `work` throws.
  [[nodiscard]] static std::string ErrorOf(const std::function<void()> &work) {
    try {
      work();
    } catch (const EInOutError &error) {
      return error.what();
    }
    return "no error";
  }
  /// Lets a child process save the files and kills it when it enters or leaves its system call `call`, counted from 0.
  /// Whether it came as far.
  [[nodiscard]] bool KillASaveAt(int call) const {
    const pid_t child = fork();
    if (child == 0) {
      if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(1);
      std::raise(SIGSTOP);
      Stage()->Commit();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    for (int i = 0; i <= call && WIFSTOPPED(status); ++i) {
      ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
      waitpid(child, &status, 0);
    }
    if (!WIFSTOPPED(status)) return false;
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    return true;
  }

  static constexpr char Old[] = "old a, old b, -";
  static constexpr char New[] = "new, new, new";

 private:
  std::optional<QTemporaryDir> m_folder{std::in_place};
};

TEST_F(StagedSetTest, ReplacesAllFilesOnCommitAndNoneWithout) {
  StartAnew();
  static_cast<void>(Stage());
  EXPECT_EQ(All(), Old);
  EXPECT_EQ(FileCount(), 2);
  Stage()->Commit();
  EXPECT_EQ(All(), New);
  EXPECT_EQ(FileCount(), 3);
}

TEST_F(StagedSetTest, IsOldOrNewButNeverBothWhereverItIsKilled) {
  int kills = 0;
  int completed = 0;
  for (StartAnew(); KillASaveAt(kills); ++kills) {
    EXPECT_EQ(StagedSet::Recover(Paths()), Paths());
    if (All() == New) ++completed;
    ASSERT_TRUE(All() == Old || All() == New) << All() << " at " << kills;
    ASSERT_EQ(FileCount(), All() == New ? 3 : 2) << kills;
    StartAnew();
  }
  if (kills == 0) GTEST_SKIP() << "the system does not let a process be traced";
  EXPECT_GT(completed, 6);
  EXPECT_LT(completed, kills);
}

TEST_F(StagedSetTest, ReadsAKilledSaveWhereItMayNotCompleteIt) {
  int calls = 0;
  int redirected = 0;
  for (StartAnew(); KillASaveAt(calls); ++calls) {
    const QString folder = QFileInfo(PathOf("a")).path();
    ASSERT_EQ(chmod(QFile::encodeName(folder).constData(), 0555), 0);
    QStringList readUnder;
    AsOrdinaryUser([&] { readUnder = StagedSet::Recover(Paths()); });
    const std::string read = All(readUnder);
    ASSERT_TRUE(read == Old || read == New) << read << " at " << calls;
    redirected += readUnder == Paths() ? 0 : 1;
    ASSERT_EQ(chmod(QFile::encodeName(folder).constData(), 0755), 0);
    StartAnew();
  }
  EXPECT_TRUE(calls == 0 || redirected > 4);
}

TEST_F(StagedSetTest, LeavesTheFilesOfARunningSaveAlone) {
  StartAnew();
  auto running = Stage();
  const qsizetype count = FileCount();
  static_cast<void>(Stage());
  EXPECT_EQ(FileCount(), count);
  running->Commit();
  EXPECT_EQ(All(), New);
}

TEST_F(StagedSetTest, ForgetsAKilledSaveOnceAnotherProgramHasWrittenAFile) {
  int call = 0;
  for (StartAnew(); KillASaveAt(call); ++call) {
    Put("b", "by somebody else");
    const std::string before = All();
    static_cast<void>(StagedSet::Recover(Paths()));
    ASSERT_EQ(All(), before) << call;
    ASSERT_LE(FileCount(), 3) << call;
    StartAnew();
  }
  EXPECT_NE(call, 1);
}

TEST_F(StagedSetTest, TakesNoOtherFilesForItsOwn) {
  StartAnew();
  for (const char *name : {"a.new", "a.0123456789abcde.new", "a.0123456789abcdef.news", "ab.0123456789abcdef.new"}) {
    Put(name, "mine");
  }
  Put("a.0123456789abcdef.new", "left");
  Put("a.0123456789abcdef.journal", "no journal");
  static_cast<void>(StagedSet::Recover(Paths()));
  EXPECT_EQ(FileCount(), 2 + 4);
  EXPECT_EQ(All(), Old);
}

TEST_F(StagedSetTest, LeavesEverythingAsItWasWhenAFileCannotBeReplaced) {
  // A folder has come into the place of a file meanwhile.
  for (const char *folder : {"a/x", "c/x"}) {
    StartAnew();
    auto set = Stage();
    QFile::remove(PathOf("a"));
    ASSERT_TRUE(QDir().mkpath(PathOf(folder)));
    EXPECT_NE(ErrorOf([&] { set->Commit(); }).find("It is not a file"), std::string::npos);
    set.reset();
    EXPECT_EQ(Get("b"), "old b");
    EXPECT_EQ(FileCount(), 2);
  }
}

TEST_F(StagedSetTest, LeavesNothingBehindWhenTheFirstFileMayNotBeRenamed) {
  if (geteuid() != 0) GTEST_SKIP() << "takes files of two users";
  StartAnew();
  // Everybody may write here, but only the owner may replace a file.
  ASSERT_EQ(chmod(QFile::encodeName(QFileInfo(PathOf("a")).path()).constData(), 01777), 0);
  ASSERT_EQ(chmod(QFile::encodeName(PathOf("a")).constData(), 0666), 0);
  ASSERT_EQ(chmod(QFile::encodeName(PathOf("b")).constData(), 0666), 0);
  AsOrdinaryUser(
      [this] { EXPECT_NE(ErrorOf([this] { Stage()->Commit(); }).find("Operation not permitted"), std::string::npos); });
  EXPECT_EQ(All(), Old);
  EXPECT_EQ(FileCount(), 2);
}

TEST_F(StagedSetTest, KeepsOwnersModesAndLinks) {
  StartAnew();
  const QByteArray a = QFile::encodeName(PathOf("a"));
  ASSERT_EQ(chmod(a.constData(), 0604), 0);
  const auto owner = geteuid() == 0 ? std::pair(uid_t(12), gid_t(34)) : std::pair(geteuid(), getegid());
  ASSERT_EQ(chown(a.constData(), owner.first, owner.second), 0);
  ASSERT_TRUE(QDir(QFileInfo(PathOf("a")).path()).mkdir(QStringLiteral("far")));
  Put("far/c", "old c");
  ASSERT_TRUE(QFile::link(PathOf("far/c"), PathOf("c")));
  Stage()->Commit();
  struct stat status {};
  ASSERT_EQ(stat(a.constData(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0604U);
  EXPECT_EQ(std::pair(status.st_uid, status.st_gid), owner);
  EXPECT_TRUE(QFileInfo(PathOf("c")).isSymLink());
  EXPECT_EQ(Get("far/c"), "new");
}

TEST_F(StagedSetTest, WritesPiecesOfAnySizeInOrder) {
  std::string expected;
  StagedSet set({PathOf("a")});
  for (std::size_t i = 1; i < 40; ++i) {
    const std::string piece(i * i * 600, char('a' + i % 26));
    set.File(0).Append(piece);
    set.File(0).Advance(std::fill_n(set.File(0).Room(3), 3, '-'));
    expected += piece + "---";
  }
  set.Commit();
  EXPECT_EQ(Get("a"), expected);
}

TEST_F(StagedSetTest, RefusesWhatIsNoFileAndTellsTheSystemsReason) {
  StartAnew();
  ASSERT_TRUE(QDir().mkdir(PathOf("c")));
  EXPECT_NE(ErrorOf([this] { StagedSet set({PathOf("c")}); }).find("It is not a file"), std::string::npos);
  EXPECT_NE(ErrorOf([this] { StagedSet set({PathOf("none/a")}); }).find("No such file or directory"),
            std::string::npos);
  EXPECT_THROW(StagedSet{{QString()}}, EInOutError);
  // No file may grow beyond a size, as on a disk that is full.
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit{1000, before.rlim_max};
  auto *const handlerBefore = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &limit);
  for (const std::size_t size : {2000, 1'000'000}) {
    const std::string error = ErrorOf([&] {
      StagedSet set({PathOf("a"), PathOf("b")});
      set.File(0).Append(std::string(size, 'x'));
      set.Commit();
    });
    EXPECT_NE(error.find("File too large"), std::string::npos);
  }
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handlerBefore);
  EXPECT_EQ(Get("a"), "old a");
  EXPECT_EQ(FileCount(), 3);
}

}  // namespace
}  // namespace tessera
