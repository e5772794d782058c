// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QByteArray>
#include <QString>
#include <QStringDecoder>
#include <QStringEncoder>

#include <string>
#include <string_view>

namespace tessera::detail {

/// What a new file is written in, and one that names no character set.
inline constexpr const char *UsualCharset = "WindowsCyrillic";
inline constexpr const char *NeutralCharset = "Neutral";

/// The character set that a .tab or .mif file names at its beginning; Neutral when it names none.
[[nodiscard]] QByteArray CharsetOf(const QString &fileName);

/// Turns texts of a file into Unicode and back, by its character set as MapInfo names it.
///
/// A library that recodes deals in UTF-8; what comes from it is taken as such where it is, which it is not in a file
/// whose set the library does not know. Texts of a Neutral file are UTF-8 where they can be, and windows-1251
/// otherwise.
class TESSERA_CORE_EXPORT MitabText {
 public:
  MitabText(const QByteArray &charset, bool libraryRecodes);

  /// As UTF-8; valid until the next call.
  [[nodiscard]] std::string_view DecodeUtf8(const char *bytes);
  [[nodiscard]] QString Decode(const char *bytes);
  /// For the library. Characters that the set does not have are counted and become question marks.
  [[nodiscard]] QByteArray Encode(const QString &text);
  [[nodiscard]] qint64 GetLostCharacters() const { return m_lostCharacters; }
  [[nodiscard]] const QByteArray &GetCharset() const { return m_charset; }
  /// Whether the set is one that is known here.
  [[nodiscard]] bool IsKnown() const { return m_isKnown; }

 private:
  QByteArray EncodeCharacter(QStringView character);

  QByteArray m_charset;
  bool m_takesUtf8;  ///< The library wants UTF-8.
  bool m_isKnown = false;
  QStringDecoder m_decoder;
  QStringEncoder m_encoder;
  std::string m_utf8;
  qint64 m_lostCharacters = 0;
};

}  // namespace tessera::detail
