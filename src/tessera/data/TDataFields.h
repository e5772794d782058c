// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TObject.h>
#include <tessera/data/TValueRecord.h>

#include <QSharedDataPointer>

#include <optional>

namespace tessera {

class TDataFields;
namespace detail {
struct DataColumn;
class DataColumns;
}  // namespace detail

/// One field of an object or a layer, for reading: a column's definition and one value. A light handle on its
/// TDataFields, valid until fields are added to it or taken from it.
class TESSERA_CORE_EXPORT TDataFieldView {
 public:
  TDataFieldView(const TDataFields &fields, int index) : m_fields(&fields), m_index(index) {}

  [[nodiscard]] int GetIndex() const { return m_index; }
  [[nodiscard]] bool GetIsPrimaryKey() const;
  /// Width of a text column in characters.
  [[nodiscard]] int GetSize() const;
  [[nodiscard]] const QString &GetName() const;
  [[nodiscard]] TDataType GetDataType() const;
  [[nodiscard]] const TDataValue &GetDefaultValue() const;
  [[nodiscard]] TDataValue GetValue() const;
  /// Whether the column is shown.
  [[nodiscard]] bool GetVisible() const;
  /// Such as "Char(255)" or "Float"; a boolean column has none.
  [[nodiscard]] QString GetDataTypeName() const;

  /// The value as text; dates and times in the locale's formats. An unassigned value has no text.
  /// @throws EConvertError when a date or time column holds a text that is no number.
  [[nodiscard]] QString GetAsString() const { return TextOf(GetValue()); }
  /// What GetAsString would be if the field had this value, in the format of a locale.
  [[nodiscard]] QString TextOf(const TDataValue &value, const QLocale &locale = QLocale()) const;
  /// Whether the text of a value that is a text is just that.
  [[nodiscard]] bool IsShownAsStored() const;
  /// The value's text as a number. @throws EConvertError when it is none.
  [[nodiscard]] double GetAsFloat() const;
  [[nodiscard]] double GetAsDecimal() const;
  [[nodiscard]] std::int32_t GetAsInteger() const;
  /// Days since 30 December 1899.
  [[nodiscard]] double GetAsDateTime() const;
  [[nodiscard]] double GetAsDate() const;
  [[nodiscard]] double GetAsTime() const;

 protected:
  [[nodiscard]] const detail::DataColumn &Column() const;

 private:
  friend class TDataField;
  const TDataFields *m_fields;
  int m_index;
};

/// One field of an object or a layer, for reading and changing. No setter checks the value against the column's type.
class TESSERA_CORE_EXPORT TDataField : public TDataFieldView {
 public:
  TDataField(TDataFields &fields, int index) : TDataFieldView(fields, index), m_fields(&fields) {}

  void SetIsPrimaryKey(bool isPrimaryKey);
  void SetSize(int size);
  void SetName(const QString &name);
  /// A text column without a size gets 255 characters.
  void SetDataType(TDataType type);
  void SetDefaultValue(const TDataValue &value);
  void SetValue(const TDataValue &value);
  void SetVisible(bool isVisible);

  void SetAsString(const QString &text) { SetValue(text); }
  void SetAsFloat(double value) { SetValue(value); }
  void SetAsDecimal(double value) { SetValue(value); }
  void SetAsInteger(std::int32_t value) { SetValue(value); }
  void SetAsDateTime(double days) { SetValue(TDateTime{days}); }
  void SetAsDate(double days) { SetValue(days); }
  void SetAsTime(double days) { SetValue(days); }

  /// Copies definition and value into `dest`; a text column of size 0 has size 255 there.
  void AssignTo(TDataField dest) const;
  void Assign(const TDataFieldView &source);

 private:
  TDataFields *m_fields;
};

/// What has fields as a part of it and wants to know when they change.
class TESSERA_CORE_EXPORT TFieldsOwner : public TObject {
 public:
  /// After any change of columns or values.
  virtual void FieldsChanged() = 0;
};

/// The columns of a layer, or the columns and values of an object.
///
/// All objects of a layer share the definitions until one of them changes its own; an object's values lie packed in one
/// block. Reading field i walks over the values before it.
class TESSERA_CORE_EXPORT TDataFields {
 public:
  /// Changes are told to `owner`, if there is one.
  explicit TDataFields(TFieldsOwner *owner = nullptr);
  /// A copy has no owner.
  TDataFields(const TDataFields &other);
  /// Takes over columns and values as they are; the owner stays.
  TDataFields &operator=(const TDataFields &other);
  ~TDataFields();

  /// Appends a column. A text column of size 0 gets size 255.
  TDataField Add(const QString &name, TDataType type, int size);
  /// Inserts a column before `index`. Unlike with Add, a text column of size 0 keeps it.
  TDataField Insert(int index, const QString &name, TDataType type, int size);
  void Delete(int index);
  void Clear();
  /// Takes over columns and values of `source`, each field as TDataField::Assign does.
  void Assign(const TDataFields &source);

  [[nodiscard]] int GetCount() const;
  /// @throws ERangeError outside the count.
  [[nodiscard]] TDataField GetFields(int index);
  [[nodiscard]] TDataFieldView GetFields(int index) const;
  void SetFields(int index, const TDataFieldView &source) { GetFields(index).Assign(source); }
  /// The last field of that name, letter case aside.
  [[nodiscard]] std::optional<TDataField> FieldByName(const QString &name);
  [[nodiscard]] std::optional<TDataFieldView> FieldByName(const QString &name) const;
  [[nodiscard]] int GetVisibleFieldCount() const;
  /// The field that is number `index` among the visible ones. @throws ERangeError when there are fewer.
  [[nodiscard]] TDataField GetDisplayed(int index);
  [[nodiscard]] TDataFieldView GetDisplayed(int index) const;

  /// All values in their packed form, for readers and writers of whole files.
  [[nodiscard]] const TValueRecord &GetRecord() const { return m_values; }
  void SetRecord(std::string_view packed);

 private:
  friend class TDataFieldView;
  friend class TDataField;
  int CheckedField(int index) const;
  [[nodiscard]] int DisplayedIndex(int index) const;
  [[nodiscard]] int IndexOf(const QString &name) const;
  [[nodiscard]] const detail::DataColumn &Column(int index) const;
  /// Changes the definition of a column, for this list alone.
  template <typename Change>
  void ChangeColumn(int index, Change change);
  void SetValue(int index, const TDataValue &value);
  void TellOwner();

  QSharedDataPointer<detail::DataColumns> m_columns;
  TValueRecord m_values;
  TFieldsOwner *m_owner = nullptr;
};

}  // namespace tessera
