#include <QGenericPlugin>

#include "probe/Probe.h"

// Made by Qt itself while the application starts; listens where the environment says.
class ProbePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "probe.json")

public:
    QObject* create(const QString&, const QString&) override {
        const QString socket = qEnvironmentVariable("ORNIVANE_PROBE");
        return socket.isEmpty() ? nullptr : new ornivane::Probe(socket);
    }
};

#include "ProbePlugin.moc"
