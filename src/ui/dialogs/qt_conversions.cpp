#include "ui/dialogs/qt_conversions.h"

#include <QDateTime>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

// The format with its days, months and hours of one digit or two, and without the time zone.
QString Loosened(QString format) {
    constexpr std::pair<const char*, const char*> replacements[] = {
        {"(?<!M)MM(?!M)", "M"},
        {"(?<!d)dd(?!d)", "d"},
        {"HH", "H"},
        {"hh", "h"},
        {"\\s*[(\\[]?\\bt+\\b[)\\]]?", ""},
    };
    for (const auto& [pattern, with] : replacements)
        format.replace(QRegularExpression(pattern), QString::fromLatin1(with));
    return format.trimmed();
}

QStringList DateFormats(const QLocale& locale) {
    const QString longFormat = Loosened(locale.dateFormat(QLocale::LongFormat));
    const QString withoutWeekday = QString(longFormat).remove(QRegularExpression("[,\\s]*dddd[,\\s]*"));
    QStringList formats;
    for (QString format : {Loosened(locale.dateFormat(QLocale::ShortFormat)), longFormat, withoutWeekday})
        formats << format.replace(QRegularExpression("y+"), "yyyy") << format.replace("yyyy", "yy");
    return formats << "yyyy-M-d";
}

QStringList TimeFormats(const QLocale& locale) {
    return {Loosened(locale.timeFormat(QLocale::ShortFormat)),
            Loosened(locale.timeFormat(QLocale::LongFormat)), "H:mm", "H:mm:ss"};
}

QStringList Formats(const QLocale& locale) {
    const QStringList dates = DateFormats(locale);
    const QStringList times = TimeFormats(locale);
    QStringList formats = dates + times;
    for (const auto& date : dates)
        for (const auto& time : times) formats << date + ' ' + time << date + "'T'" + time;
    return formats;
}

}  // namespace

std::optional<double> QtConversions::ToNumber(const std::string& text) const {
    bool isNumber = false;
    const double number = locale_.toDouble(QString::fromStdString(text).trimmed(), &isNumber);
    if (!isNumber || !std::isfinite(number)) return std::nullopt;
    return number;
}

bool QtConversions::IsDate(const std::string& text) const {
    const QString date = QString::fromStdString(text).simplified();
    return std::ranges::any_of(
        Formats(locale_), [&](const QString& format) { return locale_.toDateTime(date, format).isValid(); });
}

}  // namespace tessel
