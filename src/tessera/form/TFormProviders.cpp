// SPDX-License-Identifier: MIT
#include <tessera/form/TFormProviders.h>

namespace tessera::form {

TFormProvider::TFormProvider(std::unique_ptr<TCustomFormatProvider> provider, QWidget *parent)
    : TFormComponent(std::move(provider), parent) {}

bool TFormProvider::GetDefault() const {
  return GetProvider() && GetProvider()->GetDefault();
}

void TFormProvider::SetDefault(bool value) {
  if (GetProvider()) GetProvider()->SetDefault(value);
}

bool TFormProvider::GetEnabled() const {
  return GetProvider() && GetProvider()->GetEnabled();
}

void TFormProvider::SetEnabled(bool value) {
  if (GetProvider()) GetProvider()->SetEnabled(value);
}

QString TFormProvider::GetDescription() const {
  return GetProvider() ? GetProvider()->GetDescription() : QString();
}

QString TFormProvider::GetFilter() const {
  return GetProvider() ? GetProvider()->GetFilter() : QString();
}

QString TMapInfoFormatProvider::GetCharset() const {
  return Get() ? Get()->GetCharset() : QString();
}

void TMapInfoFormatProvider::SetCharset(const QString &charset) {
  if (Get()) Get()->SetCharset(charset);
}

}  // namespace tessera::form
