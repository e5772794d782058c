// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/SimpleMIFFormatProvider.h>
#include <tessera/formats/TMapInfoFormatProvider.h>

namespace tessera::apps {

/// Reads and writes MapInfo's files as TMapInfoFormatProvider does, but for a .mif file in which there is nothing that
/// TSimpleMIFFormatProvider does not read, and for any .mif file where there is no MITAB library: that one reads them,
/// which is faster and tells the line of a defect.
class TMapInfoFiles : public TMapInfoFormatProvider {
  Q_OBJECT

 public:
  explicit TMapInfoFiles(QObject *parent = nullptr);

  /// Whether what the other provider reads is left to it, true at first. It does not keep the widths of columns.
  void SetTakesFastWay(bool takes) { m_takesFastWay = takes; }

  bool Load(TMapLayer *layer, const QString &fileName) override;
  [[nodiscard]] TFormatRun MakeRun(const QString &fileName) const override;

 private:
  TSimpleMIFFormatProvider m_plain;
  bool m_takesFastWay = true;
};

}  // namespace tessera::apps
