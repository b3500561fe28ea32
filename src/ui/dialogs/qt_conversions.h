#pragma once

#include <QLocale>

#include "ui/rules/locale_conversions.h"

namespace tessel {

// Numbers and dates as a person writes them in the locale: dates in its short form, in its long form with or
// without the day of the week, with years of two digits or four, and in the international form; times in its
// forms and in hours, minutes and seconds.
class QtConversions : public LocaleConversions {
  public:
    explicit QtConversions(const QLocale& locale = QLocale::system()) : locale_(locale) {}

    std::optional<double> ToNumber(const std::string& text) const override;
    bool IsDate(const std::string& text) const override;

  private:
    QLocale locale_;
};

}  // namespace tessel
