// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/formats/StringParserU.h>

#include <cstdint>
#include <cstdlib>

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

/// Every view of the value answers or throws what it says it throws.
void LookAt(const tessera::TParserItem &item) {
  const auto look = [&item](auto view) {
    try {
      static_cast<void>((item.*view)());
    } catch (const tessera::EConvertError &) {
    }
  };
  look(&tessera::TParserItem::GetAsInteger);
  look(&tessera::TParserItem::GetAsFloat);
  look(&tessera::TParserItem::GetAsCurrency);
  look(&tessera::TParserItem::GetAsDate);
  look(&tessera::TParserItem::GetAsTime);
  look(&tessera::TParserItem::GetAsBoolean);
}

}  // namespace

/// The first byte is the length of the delimiter, which comes next; the rest is a line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  if (size == 0) return 0;
  const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data) + 1, qsizetype(size) - 1);
  const qsizetype delimiterSize = qMin(qsizetype(data[0] % 4), text.size());
  tessera::TStringParser parser;
  parser.SetDelimiter(text.first(delimiterSize));
  const QString line = text.sliced(delimiterSize);
  parser.FromString(line);
  for (int i = 0; i < parser.GetCount(); ++i) LookAt(*parser.GetItems(i));
  const QString joined = parser.ToString();
  const QString expected = line + parser.GetDelimiter();
  Require(joined == QStringView(expected).chopped(expected.isEmpty() ? 0 : 1));
  return 0;
}
