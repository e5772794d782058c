// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/providers/TFormatReport.h>

#include <QObject>
#include <QString>
#include <QUuid>

#include <functional>
#include <vector>

namespace tessera {

class TMapLayer;

/// One loading of one file into a layer, which must be on a map. It answers the report of this run and refers to no
/// provider, so that any thread may do it with a layer that no other knows.
using TFormatRun = std::function<TFormatReport(TMapLayer &layer)>;

/// Reads a layer from the files of one exchange format and writes it back.
///
/// A provider enters itself in FormatProviders when it is created and leaves it when it is destroyed. So to have one on
/// a form, or anywhere, is what makes its format available, and the one created first wins where two accept a file.
class TESSERA_CORE_EXPORT TCustomFormatProvider : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool Default READ GetDefault WRITE SetDefault)
  Q_PROPERTY(bool Enabled READ GetEnabled WRITE SetEnabled)
  Q_PROPERTY(QString Description READ GetDescription)
  Q_PROPERTY(QString Filter READ GetFilter)

 public:
  explicit TCustomFormatProvider(QObject *parent = nullptr);
  ~TCustomFormatProvider() override;

  /// For people.
  [[nodiscard]] virtual QString GetDescription() const = 0;
  /// Its part of a file dialog's filter: a text and the masks, with a vertical bar between them.
  [[nodiscard]] virtual QString GetFilter() const = 0;
  /// The identity of the format's provider, the same in every process.
  [[nodiscard]] virtual QUuid GetGUID() const = 0;
  /// Fills `layer` from a file. A provider may answer false whatever happened; GetReport tells.
  virtual bool Load(TMapLayer *layer, const QString &fileName) = 0;
  /// What Load would do with a file, to be done in another thread than that of the user interface. None, as here, for a
  /// provider that cannot.
  [[nodiscard]] virtual TFormatRun MakeRun(const QString & /*fileName*/) const { return nullptr; }
  /// Writes `layer` to a file. A provider may answer false whatever happened; GetReport tells.
  virtual bool Save(TMapLayer *layer, const QString &fileName) = 0;
  /// Whether it accepts the file, judged by its name alone.
  [[nodiscard]] virtual bool CanProcessFile(const QString &fileName) const = 0;

  /// Whether dialogs offer it first. It has no say in the choice for a file.
  [[nodiscard]] bool GetDefault() const { return m_default; }
  /// True takes the mark from every other registered provider.
  void SetDefault(bool value);
  /// Whether it may be chosen for a file. True at first.
  [[nodiscard]] bool GetEnabled() const { return m_enabled; }
  void SetEnabled(bool value) { m_enabled = value; }

  /// What Save would report of the layer, above all its losses, without writing anything. A provider that cannot tell
  /// answers an empty report.
  [[nodiscard]] virtual TFormatReport TrySave(const TMapLayer &layer) const;

  /// What the last Load or Save did; empty before the first.
  [[nodiscard]] const TFormatReport &GetReport() const { return m_report; }

 protected:
  /// Starts an empty report, at the beginning of Load and Save.
  TFormatReport &NewReport() { return m_report = TFormatReport(); }
  /// The report of the run, to be added to.
  [[nodiscard]] TFormatReport &Report() { return m_report; }

 private:
  bool m_default = false;
  bool m_enabled = true;
  TFormatReport m_report;
};

/// The providers of a process in the order of their creation. It does not own them.
class TESSERA_CORE_EXPORT TFormatProviders {
 public:
  TFormatProviders() = default;
  TFormatProviders(const TFormatProviders &) = delete;
  TFormatProviders &operator=(const TFormatProviders &) = delete;

  /// Appends and returns the index.
  int Add(TCustomFormatProvider *provider);
  /// Takes out the first occurrence and returns its index, -1 when there is none.
  int Remove(const TCustomFormatProvider *provider);
  [[nodiscard]] int GetCount() const { return int(m_providers.size()); }
  /// @throws ERangeError
  [[nodiscard]] TCustomFormatProvider *GetProvider(int index) const;
  /// @throws ERangeError
  void SetProvider(int index, TCustomFormatProvider *provider);

  /// The filters of all providers with "|" between them, those of disabled ones too.
  [[nodiscard]] QString GetFilter() const;
  /// Index of the first default provider, 0 when there is none.
  [[nodiscard]] int GetFilterIndex() const;
  /// The first enabled provider that accepts the file, nullptr when there is none.
  [[nodiscard]] TCustomFormatProvider *FindSuitableProvider(const QString &fileName) const;
  /// The first provider with this identity, enabled or not; nullptr when there is none.
  [[nodiscard]] TCustomFormatProvider *GetProviderByGUID(const QUuid &guid) const;

 private:
  std::vector<TCustomFormatProvider *> m_providers;
};

/// The registry of the process. It is there from when the library is loaded until it is unloaded; before and after that
/// this is nullptr, and providers that exist then are in no registry.
TESSERA_CORE_EXPORT extern TFormatProviders *FormatProviders;

}  // namespace tessera
