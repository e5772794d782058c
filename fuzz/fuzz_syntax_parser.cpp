// SPDX-License-Identifier: MIT
#include <tessera/formats/SyntaxParser.h>

#include <cstdint>
#include <cstdlib>

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

/// Everything that was read is there, in order and at its place.
void CheckItems(const tessera::TSyntaxParser &parser, const QString &text) {
  QString written;
  parser.Write(written);
  // A tab of its own has become a blank, one within quotes has not.
  QString expected = text;
  Require(written.replace(u'\t', u' ') == expected.replace(u'\t', u' '));
  for (int i = 0; i < parser.GetCount(); ++i) {
    const tessera::TSyntaxItem &item = parser.GetItem(i);
    Require(item.Value == u' ' || QStringView(text).sliced(item.Offset, item.GetLength()) == item.Value);
    static_cast<void>(item.GetKind());
  }
}

}  // namespace

/// The first byte chooses the settings, the rest is a line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  if (size == 0) return 0;
  const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data) + 1, qsizetype(size) - 1);
  tessera::TSyntaxParser parser;
  const bool raw = (data[0] & 1U) != 0;
  const bool skips = (data[0] & 2U) != 0;
  if ((data[0] & 4U) != 0) {
    tessera::TCharSet delimiters = parser.GetDelimiters();
    delimiters.Exclude(u"+-.");
    parser.SetDelimiters(delimiters);
  }
  if (skips) parser.SetSkipChars(tessera::TCharSet(u" (),BCEFHLMNOPRSTUYbcefhlmnoprstuy"));
  parser.Read(text, 1, false, raw);
  if (!skips) CheckItems(parser, text);
  Require(parser.ItemFromOffset(int(text.size())) == nullptr);
  const int count = parser.GetCount();
  parser.Pack();
  Require(parser.GetCount() <= count);
  return 0;
}
