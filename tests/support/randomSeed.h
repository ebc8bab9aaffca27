#pragma once

#include <QRandomGenerator>
#include <QtDebug>

/// The seed of a test's random cases: another one in every run, or that of the environment, to repeat a run.
inline quint32 randomSeed() {
    bool given = false;
    const quint32 asked = qgetenv("DRUVELK_SEED").toUInt(&given);
    const quint32 seed = given ? asked : QRandomGenerator::system()->generate();
    qInfo("DRUVELK_SEED=%u repeats these cases", seed);
    return seed;
}
