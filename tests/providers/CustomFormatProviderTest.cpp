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
  explicit TTestProvider(const QString &extension, QObject *parent = nullptr)
      : TCustomFormatProvider(parent), m_extension(extension) {}

  QString GetDescription() const override { return m_extension + QStringLiteral(" files"); }
  QString GetFilter() const override { return m_extension + QStringLiteral("|*.") + m_extension; }
  QUuid GetGUID() const override { return QUuid::createUuidV5(QUuid(), m_extension); }
  bool Load(TMapLayer *, const QString &) override {
    NewReport().CountObject(QStringLiteral("Point"));
    return false;
  }
  bool Save(TMapLayer *, const QString &) override {
    NewReport().Fail(0, QStringLiteral("read only"));
    return false;
  }
  bool CanProcessFile(const QString &fileName) const override {
    return fileName.endsWith(u'.' + m_extension, Qt::CaseInsensitive);
  }

 private:
  QString m_extension;
};

const QString Mif = QStringLiteral("mif");
const QString Tab = QStringLiteral("tab");
const QString MifFile = QStringLiteral("Roads.MIF");

TEST(FormatProvidersTest, AnswersNothingWhenItIsEmpty) {
  ASSERT_NE(FormatProviders, nullptr);
  EXPECT_EQ(FormatProviders->GetFilter(), QString());
  EXPECT_EQ(FormatProviders->GetFilterIndex(), 0);
  EXPECT_EQ(FormatProviders->FindSuitableProvider(MifFile), nullptr);
  EXPECT_EQ(FormatProviders->GetProviderByGUID(QUuid()), nullptr);
}

TEST(FormatProvidersTest, HoldsProvidersFromTheirCreationToTheirDestruction) {
  auto form = std::make_unique<QObject>();
  const auto *first = new TTestProvider(Mif, form.get());
  const TTestProvider second(Mif);
  EXPECT_EQ(FormatProviders->GetProvider(0), first);
  EXPECT_EQ(FormatProviders->FindSuitableProvider(MifFile), first);
  form.reset();
  EXPECT_EQ(FormatProviders->GetCount(), 1);
  EXPECT_EQ(FormatProviders->FindSuitableProvider(MifFile), &second);
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

TEST(FormatProvidersTest, CountsDisabledProvidersExceptForFiles) {
  TTestProvider mif(Mif);
  TTestProvider tab(Tab);
  mif.SetEnabled(false);
  tab.SetDefault(true);
  EXPECT_EQ(FormatProviders->GetFilter(), u"mif|*.mif|tab|*.tab");
  EXPECT_EQ(FormatProviders->GetFilterIndex(), 1);
  EXPECT_EQ(FormatProviders->GetProviderByGUID(mif.GetGUID()), &mif);
}

TEST(FormatProvidersTest, KnowsOneDefaultAtMost) {
  TTestProvider mif(Mif);
  TTestProvider tab(Tab);
  mif.SetDefault(true);
  tab.SetDefault(true);
  EXPECT_FALSE(mif.GetDefault());
  EXPECT_TRUE(tab.GetDefault());
  mif.SetDefault(false);
  EXPECT_TRUE(tab.GetDefault()) << "taking the mark away touches no other";
  tab.SetDefault(false);
  EXPECT_FALSE(mif.GetDefault());
  EXPECT_EQ(FormatProviders->GetFilterIndex(), 0);
}

TEST(FormatProvidersTest, IsAPlainListToo) {
  TTestProvider mif(Mif);
  TTestProvider tab(Tab);
  TFormatProviders own;
  EXPECT_EQ(own.Add(&mif), 0);
  EXPECT_EQ(own.Add(&mif), 1);
  own.SetProvider(1, &tab);
  EXPECT_EQ(own.Remove(&tab), 1);
  EXPECT_EQ(own.Remove(&tab), -1);
  EXPECT_EQ(own.GetProvider(0), &mif);
  EXPECT_THROW(own.SetProvider(1, &tab), ERangeError);
}

TEST(FormatProvidersTest, MayBeGoneBeforeItsProviders) {
  auto provider = std::make_unique<TTestProvider>(Mif);
  TFormatProviders *registry = std::exchange(FormatProviders, nullptr);
  auto unregistered = std::make_unique<TTestProvider>(Tab);
  unregistered->SetDefault(true);
  EXPECT_TRUE(unregistered->GetDefault());
  unregistered.reset();
  FormatProviders = registry;
  EXPECT_EQ(FormatProviders->GetCount(), 1) << "only the one from before";
  provider.reset();
  EXPECT_EQ(FormatProviders->GetCount(), 0);
}

TEST(CustomFormatProviderTest, ReportsTheLastRunOnly) {
  TTestProvider provider(Mif);
  EXPECT_TRUE(provider.GetReport().ok());
  provider.Save(nullptr, MifFile);
  EXPECT_FALSE(provider.GetReport().ok());
  provider.Load(nullptr, MifFile);
  EXPECT_TRUE(provider.GetReport().ok());
  EXPECT_EQ(provider.GetReport().CountOfObjects(), 1);
}

TEST(FormatReportTest, SumsUpARunInOneLine) {
  TFormatReport report;
  EXPECT_EQ(report.Summary(), u"0 objects");
  report.CountObject(QStringLiteral("Region"), 2);
  report.CountObject(QStringLiteral("Point"));
  report.CountObject(QStringLiteral("Region"));
  report.CountSkippedLine(QStringLiteral("Arc"));
  report.Warn(QStringLiteral("no data file"));
  EXPECT_EQ(report.Summary(), u"4 objects (1 Point, 3 Region); 1 line skipped (1 Arc); 1 warning");
  report.Fail(7, QStringLiteral("'x' is not a valid integer value"));
  report.Fail(9, QStringLiteral("later"));
  EXPECT_FALSE(report.ok());
  EXPECT_TRUE(report.Summary().endsWith(u"1 warning; error in line 7: 'x' is not a valid integer value"));
}

TEST(FormatReportTest, StaysSmallHoweverBadTheFile) {
  TFormatReport report;
  for (int i = 0; i < 1000; ++i) {
    report.Warn(QString::number(i));
    report.CountSkippedLine(QString::number(i));
  }
  report.CountSkippedLine(QStringLiteral("7"));
  EXPECT_EQ(report.warnings.size(), TFormatReport::MaxWarnings);
  EXPECT_EQ(report.warnings.front(), QStringLiteral("0"));
  EXPECT_EQ(report.skippedLines.size(), TFormatReport::MaxKeywords + 1);
  EXPECT_EQ(report.skippedLines[QStringLiteral("7")], 2);
  EXPECT_TRUE(report.Summary().contains(u"1001 lines skipped"));
  EXPECT_TRUE(report.Summary().contains(u"1000 warnings"));
}

}  // namespace
}  // namespace tessera
