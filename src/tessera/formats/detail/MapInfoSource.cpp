// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MapInfoSource.h>
#include <tessera/layers/TMapLayer.h>

#include <QFileInfo>

namespace tessera::detail {
namespace {

constexpr const char *UsualCoordSys = "Earth Projection 1, 0";

bool IsMapInfoFile(const QString &fileName) {
  const QString ending = QFileInfo(fileName).suffix().toLower();
  return (ending == QStringLiteral("tab") || ending == QStringLiteral("mif")) && QFileInfo(fileName).isFile();
}

/// Empty when the file does not tell.
QByteArray CoordSysOf(const QString &fileName) {
  const MitabFile file = OpenMitabFile(fileName);
  const MitabNumbers numbers;
  const char *coordSys = file ? mitab_c_get_mif_coordsys(file.get()) : nullptr;
  return {coordSys};
}

}  // namespace

MitabTarget TargetFor(const TMapLayer &layer, const MapInfoOrder &order, TFormatReport &report) {
  MitabTarget target{order.writtenName, UsualCoordSys, UsualCharset};
  for (const QString &source : {layer.GetSource().fileName, layer.GetFileName(), order.fileName}) {
    if (!IsMapInfoFile(source)) continue;
    if (const QByteArray coordSys = CoordSysOf(source); !coordSys.isEmpty()) target.coordSys = coordSys;
    target.charset = CharsetOf(source);
    break;
  }
  if (!order.charset.isEmpty()) target.charset = order.charset.toLatin1();
  if (!MitabText(target.charset, true).IsKnown()) {
    report.Lose(
        TFormatReport::tr("the character set %1, which cannot be written").arg(QString::fromLatin1(target.charset)));
    target.charset = UsualCharset;
  }
  if (!MitabRecodes()) {
    report.Lose(TFormatReport::tr("the name of the character set, which the library cannot write"));
    target.charset = NeutralCharset;
  }
  return target;
}

}  // namespace tessera::detail
