// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/formats/detail/StagedFile.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <optional>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

namespace tessera {
namespace {

using detail::StagedFile;

class StagedFileTest : public testing::Test {
 protected:
  [[nodiscard]] QString PathOf(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
  void Put(const char *name, const QByteArray &bytes) const {
    QFile file(PathOf(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  [[nodiscard]] std::string Get(const char *name) const {
    QFile file(PathOf(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(missing)";
  }
  [[nodiscard]] qsizetype FileCount() const {
    return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size();
  }
  /// Stages "new a" and "new b" for the files a and b.
  void Stage() {
    m_first.emplace(PathOf("a"));
    m_second.emplace(PathOf("b"));
    m_first->Append("new a");
    m_second->Append("new b");
    m_first->Close();
    m_second->Close();
  }
  void Swap() { StagedFile::SwapIn(*m_first, *m_second); }
  void DropStaged() {
    m_first.reset();
    m_second.reset();
  }

 private:
  QTemporaryDir m_folder;
  std::optional<StagedFile> m_first;
  std::optional<StagedFile> m_second;
};

TEST_F(StagedFileTest, ReplacesBothFilesAndLeavesNothingElse) {
  Put("a", "old a");
  Put("b", "old b");
  Stage();
  EXPECT_EQ(Get("a"), "old a");
  Swap();
  DropStaged();
  EXPECT_EQ(Get("a"), "new a");
  EXPECT_EQ(Get("b"), "new b");
  EXPECT_EQ(FileCount(), 2);
}

TEST_F(StagedFileTest, RemovesWhatIsNotSwappedIn) {
  Stage();
  EXPECT_EQ(FileCount(), 2);
  DropStaged();
  EXPECT_EQ(FileCount(), 0);
}

TEST_F(StagedFileTest, LeavesEverythingAsItWasWhenOneOfTheTwoFails) {
  struct FailCase {
    const char *old;     ///< The file that is there before, if any.
    const char *folder;  ///< A folder in the place of the other.
  };
  for (const auto &[old, folder] : {FailCase{"a", "b/c"}, FailCase{nullptr, "b/c"}, FailCase{"b", "a/c"}}) {
    QDir(PathOf("")).removeRecursively();
    ASSERT_TRUE(QDir().mkpath(PathOf("")));
    if (old != nullptr) Put(old, "old");
    Stage();
    ASSERT_TRUE(QDir().mkpath(PathOf(folder)));
    EXPECT_THROW(Swap(), EInOutError);
    DropStaged();
    EXPECT_TRUE(QFileInfo(PathOf(folder)).isDir());
    EXPECT_EQ(FileCount(), old != nullptr ? 2 : 1);
    EXPECT_TRUE(old == nullptr || Get(old) == "old");
  }
}

TEST_F(StagedFileTest, KeepsPermissionsAndLinks) {
  Put("a", "old a");
  Put("c", "old c");
  const auto permissions = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadUser |
                           QFileDevice::WriteUser | QFileDevice::ReadOther;
  ASSERT_TRUE(QFile::setPermissions(PathOf("a"), permissions));
  ASSERT_TRUE(QFile::link(PathOf("c"), PathOf("b")));
  Stage();
  Swap();
  EXPECT_EQ(QFileInfo(PathOf("a")).permissions(), permissions);
  EXPECT_TRUE(QFileInfo(PathOf("b")).isSymLink());
  EXPECT_EQ(Get("c"), "new b");
}

TEST_F(StagedFileTest, WritesPiecesOfAnySizeInOrder) {
  std::string expected;
  StagedFile file(PathOf("a"));
  StagedFile other(PathOf("b"));
  for (std::size_t i = 1; i < 40; ++i) {
    const std::string piece(i * i * 600, char('a' + i % 26));
    file.Append(piece);
    char *room = file.Room(3);
    std::fill_n(room, 3, '-');
    file.Advance(room + 3);
    expected += piece + "---";
  }
  file.Close();
  other.Close();
  StagedFile::SwapIn(file, other);
  EXPECT_EQ(Get("a"), expected);
}

TEST_F(StagedFileTest, RefusesWhatIsNoFile) {
  ASSERT_TRUE(QDir(PathOf("")).mkdir(QStringLiteral("a")));
  EXPECT_THROW(StagedFile(PathOf("a")), EInOutError);
  EXPECT_THROW(StagedFile(PathOf("none/a")), EInOutError);
  EXPECT_THROW(StagedFile{QString()}, EInOutError);
}

#ifdef Q_OS_UNIX
/// Lets no file grow beyond a size, as a disk that is full.
class TFullDisk {
 public:
  explicit TFullDisk(rlim_t size) : m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit limit{size, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~TFullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handlerBefore);
  }
  TFullDisk(const TFullDisk &) = delete;
  TFullDisk &operator=(const TFullDisk &) = delete;

 private:
  rlimit m_before{};
  void (*m_handlerBefore)(int);
};

TEST_F(StagedFileTest, ThrowsWhenTheDiskIsFull) {
  Put("a", "old a");
  {
    const TFullDisk full(1000);
    StagedFile small(PathOf("a"));
    small.Append(std::string(2000, 'x'));
    EXPECT_THROW(small.Close(), EInOutError);
    StagedFile big(PathOf("a"));
    EXPECT_THROW(big.Append(std::string(1'000'000, 'x')), EInOutError);
  }
  EXPECT_EQ(Get("a"), "old a");
  EXPECT_EQ(FileCount(), 1);
}
#endif

}  // namespace
}  // namespace tessera
