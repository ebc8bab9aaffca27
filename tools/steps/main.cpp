#include "tools/steps/Steps.h"

#include <QGenericPlugin>

/// Loaded by `-plugin steps`, with the list of steps named in DRUVELK_STEPS.
class StepsPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "steps.json")

public:
    QObject *create(const QString & /*name*/, const QString & /*options*/) override {
        return new Steps(qEnvironmentVariable("DRUVELK_STEPS"));
    }
};

#include "main.moc"
