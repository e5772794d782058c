// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QString>
#include <QStringView>

#include <vector>

namespace tessera {

/// One value of a line: a raw text, with views of it as other types. The views convert on every call, in the number and
/// date format of the process. Those that read throw EConvertError when the text is no such value.
class TESSERA_CORE_EXPORT TParserItem {
 public:
  [[nodiscard]] const QString &GetAsString() const { return m_raw; }
  void SetAsString(const QString &value) { m_raw = value; }
  [[nodiscard]] int GetAsInteger() const;
  void SetAsInteger(int value);
  [[nodiscard]] double GetAsFloat() const;
  void SetAsFloat(double value);
  /// An amount of money: rounded to four decimals, to the even one of two. @throws EConvertError also beyond
  /// ±922337203685477.5807
  [[nodiscard]] double GetAsCurrency() const;
  void SetAsCurrency(double value);
  /// Days since 1899-12-30.
  [[nodiscard]] double GetAsDate() const;
  void SetAsDate(double value);
  /// A fraction of a day.
  [[nodiscard]] double GetAsTime() const;
  void SetAsTime(double value);
  /// True for the integer 1 only.
  [[nodiscard]] bool GetAsBoolean() const;
  void SetAsBoolean(bool value);

  void SetRawData(const QString &text) { m_raw = text; }
  void AssignTo(TParserItem &destination) const { destination.m_raw = m_raw; }

 private:
  QString m_raw;
};

/// Splits a line into values at a delimiter and joins values into a line. It knows nothing of quotes: a delimiter
/// within them splits too.
///
/// Pointers and references to items hold until items are added or removed.
class TESSERA_CORE_EXPORT TStringParser {
 public:
  /// The text between two values, ";" at first. An empty one never splits.
  [[nodiscard]] const QString &GetDelimiter() const { return m_delimiter; }
  void SetDelimiter(const QString &delimiter) { m_delimiter = delimiter; }

  /// Appends an empty item.
  TParserItem &Add();
  void Clear() { m_items.clear(); }
  [[nodiscard]] int GetCount() const { return int(m_items.size()); }
  /// The item, or nullptr and a message to the user when `index` lies above the last one.
  /// @throws ERangeError when `index` is negative
  [[nodiscard]] TParserItem *GetItems(int index);
  /// Copies `item` over the one at `index`. @throws ERangeError
  void SetItems(int index, const TParserItem &item);

  /// Replaces the items by the values of `line`: always one more than it has delimiters.
  void FromString(QStringView line);
  /// The values, each with the delimiter behind it, less the last character. So a delimiter of several characters
  /// leaves its beginning at the end; that is intended.
  [[nodiscard]] QString ToString() const;
  /// Replaces the items of `destination` by copies of these. Its delimiter stays.
  void AssignTo(TStringParser &destination) const { destination.m_items = m_items; }

 private:
  std::vector<TParserItem> m_items;
  QString m_delimiter = QStringLiteral(";");
};

}  // namespace tessera
