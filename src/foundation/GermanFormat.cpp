#include "foundation/GermanFormat.h"

#include "foundation/Calendar.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <map>
#include <memory>
#include <unicode/datefmt.h>
#include <unicode/numfmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

namespace brisklog::format {
namespace {

constexpr const char* noBreakSpace = "\u00A0";
/// From this many seconds on (three million years), the fallback is shown instead of a duration.
constexpr double longestDuration = 1e14;

const icu::Locale& germany() {
    static const icu::Locale locale("de", "DE", nullptr, "calendar=gregorian");
    return locale;
}

std::string utf8(const icu::UnicodeString& text) {
    std::string bytes;
    return text.toUTF8String(bytes);
}

std::unique_ptr<icu::DateFormat> makeStyle(icu::DateFormat::EStyle date, icu::DateFormat::EStyle time) {
    return std::unique_ptr<icu::DateFormat>(icu::DateFormat::createDateTimeInstance(date, time, germany()));
}

std::unique_ptr<icu::DateFormat> makePattern(const char* pattern) {
    UErrorCode status = U_ZERO_ERROR;
    return std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString::fromUTF8(pattern), germany(), status);
}

std::unique_ptr<icu::DateFormat> makeDateFormatter(DateForm form) {
    using icu::DateFormat;
    switch (form) {
    case DateForm::shortWithTime:
        return makeStyle(DateFormat::kShort, DateFormat::kMedium);
    case DateForm::shortDate:
        return makeStyle(DateFormat::kShort, DateFormat::kNone);
    case DateForm::mediumDate:
        return makeStyle(DateFormat::kMedium, DateFormat::kNone);
    case DateForm::longDate:
        return makeStyle(DateFormat::kLong, DateFormat::kNone);
    case DateForm::fullDate:
        return makeStyle(DateFormat::kFull, DateFormat::kNone);
    case DateForm::shortTime:
        return makeStyle(DateFormat::kNone, DateFormat::kShort);
    case DateForm::weekday:
        return makePattern("E");
    case DateForm::month:
        return makePattern("MMM");
    case DateForm::monthAndYear:
        return makePattern("LLLL yyyy");
    case DateForm::isoDay:
        return makePattern("yyyy-MM-dd");
    }
    std::abort();
}

/// Formats in UTC.
const icu::DateFormat& dateFormatter(DateForm form) {
    // Building one costs thirty times as much as using it.
    static std::map<DateForm, std::unique_ptr<icu::DateFormat>> formatters;
    auto& formatter = formatters[form];
    if (!formatter) {
        formatter = makeDateFormatter(form);
        formatter->setTimeZone(*icu::TimeZone::getGMT());
    }
    return *formatter;
}

std::unique_ptr<icu::NumberFormat> makeMoneyFormatter(int decimals) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> made(icu::NumberFormat::createCurrencyInstance(germany(), status));
    made->setCurrency(u"EUR", status);
    made->setRoundingMode(icu::NumberFormat::kRoundHalfEven);
    made->setMinimumFractionDigits(decimals);
    made->setMaximumFractionDigits(decimals);
    return made;
}

const icu::NumberFormat& moneyFormatter() {
    static const auto formatter = makeMoneyFormatter(2);
    return *formatter;
}

const icu::NumberFormat& wholeMoneyFormatter() {
    static const auto formatter = makeMoneyFormatter(0);
    return *formatter;
}

/// Removes the minus sign from an amount that was rounded to zero.
std::string withoutSignOfZero(std::string amount) {
    if (amount.front() == '-' && amount.find_first_of("123456789") == std::string::npos)
        amount.erase(0, 1);
    return amount;
}

std::string formattedAmount(const icu::NumberFormat& formatter, double euros, std::string_view fallback) {
    if (!std::isfinite(euros))
        return std::string(fallback);
    icu::UnicodeString text;
    formatter.format(euros, text);
    return withoutSignOfZero(utf8(text));
}

/// A duration split into whole units, fractions of a second truncated.
struct Parts {
    const char* sign;
    long long hours;
    long long minutes;
    long long seconds;
};

bool isFigure(TimeInterval seconds) { return std::isfinite(seconds) && std::abs(seconds) < longestDuration; }

Parts parts(TimeInterval seconds, long long smallestUnit) {
    const auto whole = static_cast<long long>(std::abs(seconds));
    const bool showsMinus = seconds < 0 && whole >= smallestUnit;
    return {showsMinus ? "-" : "", whole / 3600, whole / 60 % 60, whole % 60};
}

std::string withUnit(long long number, const char* unit) {
    return std::to_string(number) + noBreakSpace + unit;
}

std::string twoDigits(long long number) { return (number < 10 ? "0" : "") + std::to_string(number); }

} // namespace

std::string date(Date date, DateForm form, const Calendar& calendar) {
    // The formatters always work in UTC: their own time zone data could disagree with the calendar's.
    const int offset = calendar.localTime(date).offsetFromUtc();
    icu::UnicodeString text;
    dateFormatter(form).format(date.addingSeconds(offset).secondsSince1970() * 1000, text);
    return utf8(text);
}

std::string money(double euros, std::string_view fallback) {
    return formattedAmount(moneyFormatter(), euros, fallback);
}

std::string wholeMoney(double euros, std::string_view fallback) {
    return formattedAmount(wholeMoneyFormatter(), euros, fallback);
}

std::string plainMoney(double euros, std::string_view fallback) {
    if (!std::isfinite(euros))
        return std::string(fallback);
    // The largest double has 309 digits before the point.
    std::array<char, 320> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), euros, std::chars_format::fixed, 2);
    return withoutSignOfZero(std::string(buffer.data(), end)) + " €";
}

std::string duration(TimeInterval seconds, std::string_view fallback) {
    if (!isFigure(seconds))
        return std::string(fallback);
    const Parts p = parts(seconds, 60);
    if (p.hours == 0)
        return p.sign + withUnit(p.minutes, "min");
    if (p.minutes == 0)
        return p.sign + withUnit(p.hours, "h");
    return p.sign + withUnit(p.hours, "h") + " " + withUnit(p.minutes, "min");
}

std::string paddedDuration(TimeInterval seconds, std::string_view fallback) {
    if (!isFigure(seconds))
        return std::string(fallback);
    const Parts p = parts(seconds, 60);
    return p.sign + withUnit(p.hours, "h") + " " + withUnit(p.minutes, "min");
}

std::string paddedDurationWithSeconds(TimeInterval seconds, std::string_view fallback) {
    if (!isFigure(seconds))
        return std::string(fallback);
    const Parts p = parts(seconds, 1);
    return p.sign + withUnit(p.hours, "h") + " " + withUnit(p.minutes, "min") + " " +
           withUnit(p.seconds, "s");
}

std::string runningDuration(TimeInterval seconds, std::string_view fallback) {
    if (!isFigure(seconds))
        return std::string(fallback);
    const Parts p = parts(seconds, 1);
    return p.sign + twoDigits(p.hours) + ":" + twoDigits(p.minutes) + ":" + twoDigits(p.seconds);
}

} // namespace brisklog::format
