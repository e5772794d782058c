// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tessera::detail {

/// Appends a field to a line of text. A field that holds the separator, a quote or a line break is quoted, quotes in it
/// are doubled, as RFC 4180 has it.
void AppendDelimited(QString &line, const QString &field, QChar separator);

/// The fields of a text, line by line; of lines that end in CR LF, LF or CR, the last one or not.
[[nodiscard]] std::vector<QStringList> SplitDelimited(const QString &text, QChar separator);

}  // namespace tessera::detail
