// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MapInfoCharsets.h>
#include <tessera/formats/detail/MifText.h>
#include <tessera/formats/detail/MitabText.h>

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace tessera::detail {
namespace {

constexpr char16_t FirstForeign = 128;

/// The encoding of a set, and whether it is known; of Neutral and what is not known that of the usual set.
const char *EncodingOf(const QByteArray &charset, bool &isKnown) {
  const auto find = [](const QByteArray &name) {
    return std::find_if(std::begin(MapInfoCharsets), std::end(MapInfoCharsets), [&name](const MapInfoCharset &each) {
      return name.compare(each.name, Qt::CaseInsensitive) == 0;
    });
  };
  const auto *found = find(charset);
  isKnown = found != std::end(MapInfoCharsets);
  return isKnown && *found->encoding != '\0' ? found->encoding : find(UsualCharset)->encoding;
}

bool IsUtf8(std::string_view bytes, QString &text) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  text = decoder(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
  return !decoder.hasError();
}

}  // namespace

QByteArray CharsetOf(const QString &fileName) {
  constexpr qint64 HeaderSize = 4096;
  static const QRegularExpression clause(
      QStringLiteral("^\\s*!?charset\\s+\"?([\\w-]+)"),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::MultilineOption);
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) return NeutralCharset;
  const auto match = clause.match(QString::fromLatin1(file.read(HeaderSize).replace('\r', '\n')));
  return match.hasMatch() ? match.captured(1).toLatin1() : QByteArray(NeutralCharset);
}

MitabText::MitabText(const QByteArray &charset, bool libraryRecodes)
    : m_charset(charset), m_takesUtf8(libraryRecodes && charset.compare(NeutralCharset, Qt::CaseInsensitive) != 0) {
  const char *encoding = EncodingOf(charset, m_isKnown);
  m_decoder = QStringDecoder(encoding, QStringDecoder::Flag::Stateless);
  m_encoder = QStringEncoder(encoding, QStringEncoder::Flag::Stateless);
}

std::string_view MitabText::DecodeUtf8(const char *bytes) {
  const std::string_view given(bytes);
  if (IsAscii(given)) return given;
  m_utf8 = Decode(bytes).toStdString();
  return m_utf8;
}

QString MitabText::Decode(const char *bytes) {
  const std::string_view given(bytes);
  if (IsAscii(given)) return QString::fromLatin1(bytes);
  const bool isOfOneByte = m_isKnown && !m_takesUtf8 && m_charset.compare(NeutralCharset, Qt::CaseInsensitive) != 0;
  QString text;
  if (!isOfOneByte && IsUtf8(given, text)) return text;
  return m_decoder(QByteArrayView(bytes));
}

QByteArray MitabText::EncodeCharacter(QStringView character) {
  constexpr char Substitute = 0x1a;
  const QByteArray encoded = m_encoder(character);
  const bool isLost = m_encoder.hasError() || encoded.isEmpty() || encoded.startsWith('?') || encoded[0] == Substitute;
  m_encoder.resetState();
  if (!isLost) return m_takesUtf8 ? character.toUtf8() : encoded;
  ++m_lostCharacters;
  return "?";
}

QByteArray MitabText::Encode(const QString &text) {
  // The library takes a zero for the end.
  const QString shown = text.section(QChar(0), 0, 0);
  QByteArray bytes;
  for (qsizetype i = 0; i < shown.size();) {
    const bool isPair = shown[i].isHighSurrogate() && i + 1 < shown.size();
    const QStringView character = QStringView(shown).sliced(i, isPair ? 2 : 1);
    bytes += shown[i].unicode() < FirstForeign ? QByteArray(1, char(shown[i].unicode())) : EncodeCharacter(character);
    i += character.size();
  }
  return bytes;
}

}  // namespace tessera::detail
