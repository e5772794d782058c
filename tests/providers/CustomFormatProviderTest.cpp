// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QVariant>
#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace tessera {
namespace {

/// Accepts the files with one extension, and does nothing with them.
class TTestProvider : public TCustomFormatProvider {
 public:
  explicit TTestProvider(QString extension, QObject *parent = nullptr)
      : TCustomFormatProvider(parent), m_extension(std::move(extension)) {}

  QString GetDescription() const override { return m_extension + QStringLiteral(" files"); }
  QString GetFilter() const override { return m_extension + QStringLiteral("|*.") + m_extension; }
  QUuid GetGUID() const override { return QUuid::createUuidV5(QUuid(), m_extension); }
  bool Load(TMapLayer *, const QString &) override { return false; }
  bool Save(TMapLayer *, const QString &) override { return false; }
  bool CanProcessFile(const QString &fileName) const override {
    return fileName.endsWith(u'.' + m_extension, Qt::CaseInsensitive);
  }

 private:
  QString m_extension;
};

const QString Mif = QStringLiteral("mif");
const QString Tab = QStringLiteral("tab");
const QString MifFile = QStringLiteral("Roads.MIF");

TEST(FormatProvidersTest, HoldsProvidersFromTheirCreationToTheirDestruction) {
  auto form = std::make_unique<QObject>();
  const auto *first = new TTestProvider(Mif, form.get());
  const TTestProvider second(Mif);
  EXPECT_EQ(FormatProviders->GetProvider(0), first);
  EXPECT_EQ(FormatProviders->FindSuitableProvider(MifFile), first);
  form.reset();
  EXPECT_EQ(FormatProviders->GetCount(), 1);
  EXPECT_EQ(FormatProviders->FindSuitableProvider(MifFile), &second);
  EXPECT_EQ(FormatProviders->GetProviderByGUID(QUuid()), nullptr);
  EXPECT_THROW(static_cast<void>(FormatProviders->GetProvider(1)), ERangeError);
}

TEST(FormatProvidersTest, ChoosesTheFirstEnabledThatAcceptsTheName) {
  TTestProvider tab(Tab);
  TTestProvider first(Mif);
  TTestProvider second(Mif);
  EXPECT_TRUE(second.setProperty("Default", true));
  EXPECT_EQ(FormatProviders->FindSuitableProvider(MifFile), &first) << "a default has no say";
  first.SetEnabled(false);
  EXPECT_EQ(FormatProviders->FindSuitableProvider(MifFile), &second);
  second.SetEnabled(false);
  EXPECT_EQ(FormatProviders->FindSuitableProvider(MifFile), nullptr);
  EXPECT_EQ(FormatProviders->FindSuitableProvider(QStringLiteral("a.tab")), &tab);
}

TEST(FormatProvidersTest, KnowsOneDefaultAtMostAndCountsDisabledProvidersExceptForFiles) {
  TTestProvider mif(Mif);
  TTestProvider tab(Tab);
  mif.SetEnabled(false);
  EXPECT_EQ(FormatProviders->GetFilter(), u"mif|*.mif|tab|*.tab");
  EXPECT_EQ(FormatProviders->GetProviderByGUID(mif.GetGUID()), &mif);
  mif.SetDefault(true);
  tab.SetDefault(true);
  EXPECT_FALSE(mif.GetDefault());
  mif.SetDefault(false);
  EXPECT_TRUE(tab.GetDefault()) << "taking the mark away touches no other";
  EXPECT_EQ(FormatProviders->GetFilterIndex(), 1);
  tab.SetDefault(false);
  EXPECT_FALSE(mif.GetDefault());
  EXPECT_EQ(FormatProviders->GetFilterIndex(), 0);
}

TEST(FormatProvidersTest, MayBeGoneBeforeItsProviders) {
  auto provider = std::make_unique<TTestProvider>(Mif);
  TFormatProviders *registry = std::exchange(FormatProviders, nullptr);
  TTestProvider(Tab).SetDefault(true);
  FormatProviders = registry;
  EXPECT_EQ(FormatProviders->GetCount(), 1) << "only the one from before";
  provider.reset();
  EXPECT_EQ(FormatProviders->GetCount(), 0);
}

TEST(FormatReportTest, SumsUpARunInOneLineAndStaysSmallHoweverBadTheFile) {
  TFormatReport report;
  report.CountObject(QStringLiteral("Region"), 2);
  report.CountObject(QStringLiteral("Point"));
  report.CountSkippedLine(QStringLiteral("Arc"));
  report.Warn(QStringLiteral("no data file"));
  report.Fail(7, QStringLiteral("wrong"));
  report.Fail(9, QStringLiteral("later"));
  EXPECT_EQ(report.Summary(),
            u"3 objects (1 Point, 2 Region); 1 line skipped (1 Arc); 1 warning; error in line 7: wrong");
  for (int i = 0; i < 1000; ++i) {
    report.Warn(QString::number(i));
    report.CountSkippedLine(QString::number(i));
  }
  EXPECT_EQ(report.warnings.size(), TFormatReport::MaxWarnings);
  EXPECT_EQ(report.skippedLines.size(), TFormatReport::MaxKeywords + 1);
  EXPECT_TRUE(report.Summary().contains(u"1001 lines skipped"));
  EXPECT_TRUE(report.Summary().contains(u"1001 warnings"));
}

}  // namespace
}  // namespace tessera
