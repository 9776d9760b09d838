#include "foundation/GermanFormat.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <unicode/datefmt.h>
#include <unicode/numfmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

namespace brisklog::format {
namespace {

constexpr const char* noBreakSpace = "\u00A0";
constexpr double millisecondsPerSecond = 1000;
/// Beyond this many seconds (three million years) a duration is no figure any more.
constexpr double longestDuration = 1e14;

const icu::Locale& germany() {
    static const icu::Locale locale("de", "DE", nullptr, "calendar=gregorian");
    return locale;
}

std::string utf8(const icu::UnicodeString& text) {
    std::string bytes;
    return text.toUTF8String(bytes);
}

struct DateFormatters {
    std::unique_ptr<icu::DateFormat> shortWithTime{icu::DateFormat::createDateTimeInstance(
        icu::DateFormat::kShort, icu::DateFormat::kMedium, germany())};
    std::unique_ptr<icu::DateFormat> shortDate{
        icu::DateFormat::createDateInstance(icu::DateFormat::kShort, germany())};
    std::unique_ptr<icu::DateFormat> mediumDate{
        icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, germany())};
    std::unique_ptr<icu::DateFormat> longDate{
        icu::DateFormat::createDateInstance(icu::DateFormat::kLong, germany())};
    std::unique_ptr<icu::DateFormat> fullDate{
        icu::DateFormat::createDateInstance(icu::DateFormat::kFull, germany())};
    std::unique_ptr<icu::DateFormat> shortTime{
        icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, germany())};
    std::unique_ptr<icu::DateFormat> weekday{makePattern("E")};
    std::unique_ptr<icu::DateFormat> month{makePattern("MMM")};
    std::unique_ptr<icu::DateFormat> monthAndYear{makePattern("LLLL yyyy")};
    std::unique_ptr<icu::DateFormat> isoDay{makePattern("yyyy-MM-dd")};

    static std::unique_ptr<icu::DateFormat> makePattern(const char* pattern) {
        UErrorCode status = U_ZERO_ERROR;
        return std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString::fromUTF8(pattern), germany(),
                                                       status);
    }

    [[nodiscard]] std::array<icu::DateFormat*, 10> all() const {
        return {shortWithTime.get(), shortDate.get(), mediumDate.get(), longDate.get(),     fullDate.get(),
                shortTime.get(),     weekday.get(),   month.get(),      monthAndYear.get(), isoDay.get()};
    }
};

DateFormatters& dateFormatters() {
    // Building one costs thirty times what using it does.
    static DateFormatters formatters;
    return formatters;
}

std::string formatted(const icu::DateFormat& formatter, Date date) {
    icu::UnicodeString text;
    formatter.format(date.secondsSince1970() * millisecondsPerSecond, text);
    return utf8(text);
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

/// What was rounded to zero is written without a minus.
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

/// A duration taken apart into whole units, fractions of a second cut off.
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

std::string date(Date date, DateForm form) {
    const DateFormatters& formatters = dateFormatters();
    switch (form) {
    case DateForm::shortWithTime:
        return formatted(*formatters.shortWithTime, date);
    case DateForm::shortDate:
        return formatted(*formatters.shortDate, date);
    case DateForm::mediumDate:
        return formatted(*formatters.mediumDate, date);
    case DateForm::longDate:
        return formatted(*formatters.longDate, date);
    case DateForm::fullDate:
        return formatted(*formatters.fullDate, date);
    case DateForm::shortTime:
        return formatted(*formatters.shortTime, date);
    case DateForm::weekday:
        return formatted(*formatters.weekday, date);
    case DateForm::month:
        return formatted(*formatters.month, date);
    case DateForm::monthAndYear:
        return formatted(*formatters.monthAndYear, date);
    }
    std::abort();
}

std::string isoDay(Date date) { return formatted(*dateFormatters().isoDay, date); }

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

void useTimeZone(const QTimeZone& zone) {
    const auto id = icu::UnicodeString::fromUTF8(zone.id().toStdString());
    for (icu::DateFormat* formatter : dateFormatters().all())
        formatter->adoptTimeZone(icu::TimeZone::createTimeZone(id));
}

} // namespace brisklog::format
