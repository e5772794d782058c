// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace tessera::apps {

/// Whether a .mif file and its .mid file hold nothing but what TSimpleMIFFormatProvider reads as it is meant: Region,
/// Pline of one section and Point, with solid pens of width 1, solid brushes, whose background does not show, and plain
/// symbols; windows-1251; texts without delimiters and quotes in them. Decided by the keywords, the clauses and the
/// quotes; a file with a defect may pass. Costs little more than reading both files.
[[nodiscard]] bool HoldsOnlyPlainShapes(const QString &mifName, const QString &midName);

/// Whether a line of a .mif file is one of those: a line of the header, or one of a shape or its clauses that does not
/// begin with a number. Without blanks around it.
[[nodiscard]] bool IsPlainMifLine(std::string_view line, bool isInHeader);

}  // namespace tessera::apps
