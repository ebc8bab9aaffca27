#pragma once

#include <QtGlobal>
#include <random>

/// Random numbers, other ones in every run; DRUVELK_SEED repeats a run by the number it printed.
inline std::mt19937 seededRandom() {
    const bool asked = qEnvironmentVariableIsSet("DRUVELK_SEED");
    const unsigned seed = asked ? qgetenv("DRUVELK_SEED").toUInt() : std::random_device()();
    qInfo("DRUVELK_SEED=%u repeats this run", seed);
    return std::mt19937(seed);
}
