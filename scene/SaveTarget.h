#pragma once

#include <QString>

/// Why no level can be saved under a name, as a short sentence in the user's language; empty where
/// nothing speaks against it. A name may be saved under if it is free in a folder that may be
/// written, or names an ordinary file that may be written. Links are followed. Devices, FIFOs and
/// sockets are never written into and never replaced.
QString whyNotWritable(const QString &fileName);
