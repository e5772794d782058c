// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QString>

#include <stdexcept>

namespace tessera {

/// An index outside a list, or a value outside its integer type.
class TESSERA_CORE_EXPORT ERangeError : public std::out_of_range {
 public:
  explicit ERangeError(const QString &message);
};

/// A text that is not a value of the wanted type.
class TESSERA_CORE_EXPORT EConvertError : public std::runtime_error {
 public:
  explicit EConvertError(const QString &message);
};

/// A file that cannot be opened, read, created or written.
class TESSERA_CORE_EXPORT EInOutError : public std::runtime_error {
 public:
  explicit EInOutError(const QString &message);
};

/// A division by zero where the result was asked for, such as the scale of a view without width.
class TESSERA_CORE_EXPORT EZeroDivide : public std::domain_error {
 public:
  explicit EZeroDivide(const QString &message);
};

/// The text of any exception, as UTF-8.
[[nodiscard]] TESSERA_CORE_EXPORT QString MessageOf(const std::exception &error);

/// `index`, or ERangeError with `what` in its text when it does not lie in 0 … count - 1.
TESSERA_CORE_EXPORT std::size_t CheckedIndex(std::ptrdiff_t index, std::size_t count, const char *what);

}  // namespace tessera
