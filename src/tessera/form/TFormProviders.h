// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/form/TFormComponent.h>
#include <tessera/formats/SimpleMIFFormatProvider.h>
#include <tessera/formats/TMapInfoFormatProvider.h>

namespace tessera::form {

/// Base of the format providers on forms, with the properties of the provider.
class TESSERA_WIDGETS_EXPORT TFormProvider : public TFormComponent {
  Q_OBJECT
  Q_PROPERTY(bool Default READ GetDefault WRITE SetDefault)
  Q_PROPERTY(bool Enabled READ GetEnabled WRITE SetEnabled)
  Q_PROPERTY(QString Description READ GetDescription)
  Q_PROPERTY(QString Filter READ GetFilter)

 public:
  /// None when it was deleted; then nothing can be set any more.
  [[nodiscard]] TCustomFormatProvider *GetProvider() const {
    return static_cast<TCustomFormatProvider *>(GetComponent());
  }

  [[nodiscard]] bool GetDefault() const;
  void SetDefault(bool value);
  [[nodiscard]] bool GetEnabled() const;
  void SetEnabled(bool value);
  [[nodiscard]] QString GetDescription() const;
  [[nodiscard]] QString GetFilter() const;

 protected:
  TFormProvider(std::unique_ptr<TCustomFormatProvider> provider, QWidget *parent);
};

/// A provider on a form that is a `Provider`.
template <class Provider>
class TFormProviderOf : public TFormProvider {
 public:
  explicit TFormProviderOf(QWidget *parent = nullptr) : TFormProvider(std::make_unique<Provider>(), parent) {}
  /// The provider itself; none when it was deleted.
  [[nodiscard]] Provider *Get() const { return static_cast<Provider *>(GetProvider()); }
};

class TESSERA_WIDGETS_EXPORT TSimpleMIFFormatProvider : public TFormProviderOf<tessera::TSimpleMIFFormatProvider> {
  Q_OBJECT

 public:
  using TFormProviderOf::TFormProviderOf;
};

class TESSERA_WIDGETS_EXPORT TMapInfoFormatProvider : public TFormProviderOf<tessera::TMapInfoFormatProvider> {
  Q_OBJECT
  Q_PROPERTY(QString Charset READ GetCharset WRITE SetCharset)

 public:
  using TFormProviderOf::TFormProviderOf;

  [[nodiscard]] QString GetCharset() const;
  void SetCharset(const QString &charset);
};

}  // namespace tessera::form
