#pragma once

#include <QLatin1String>
#include <QString>
#include <array>
#include <optional>

/// A choice of a combo box, by its untranslated name, and the value a level stores for it.
template <typename Value>
struct NamedValue {
    const char *name;
    Value value;
};

/// The sun's angle in degrees.
inline constexpr std::array<NamedValue<int>, 7> dayTimes{{{"noon", 70},
                                                          {"sunrise", 30},
                                                          {"morning", 50},
                                                          {"afternoon", 111},
                                                          {"evening", 151},
                                                          {"night", 171},
                                                          {"sunset", 131}}};

inline constexpr std::array<NamedValue<float>, 3> gravities{
    {{"normal", 9.8F}, {"high", 12.5F}, {"low", 6.4F}}};

template <typename Value, std::size_t N>
std::optional<Value> valueOf(const std::array<NamedValue<Value>, N> &table, const QString &name) {
    for (const auto &row : table) {
        if (name == QLatin1String(row.name)) {
            return row.value;
        }
    }
    return std::nullopt;
}

/// The name of exactly this value, or null.
template <typename Value, std::size_t N>
const char *nameOf(const std::array<NamedValue<Value>, N> &table, Value value) {
    for (const auto &row : table) {
        if (row.value == value) {
            return row.name;
        }
    }
    return nullptr;
}
