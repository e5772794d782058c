// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>

namespace tessera {

ERangeError::ERangeError(const QString &message) : std::out_of_range(message.toStdString()) {}
EConvertError::EConvertError(const QString &message) : std::runtime_error(message.toStdString()) {}
EInOutError::EInOutError(const QString &message) : std::runtime_error(message.toStdString()) {}
EZeroDivide::EZeroDivide(const QString &message) : std::domain_error(message.toStdString()) {}

QString MessageOf(const std::exception &error) {
  return QString::fromUtf8(error.what());
}

std::size_t CheckedIndex(std::ptrdiff_t index, std::size_t count, const char *what) {
  if (index < 0 || std::size_t(index) >= count) {
    throw ERangeError(QStringLiteral("%1 index out of bounds (%2)").arg(QLatin1String(what)).arg(index));
  }
  return std::size_t(index);
}

}  // namespace tessera
