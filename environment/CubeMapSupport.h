#pragma once

/// Whether the driver offers cube maps. The first call with a context current asks the driver, and
/// its answer holds for the whole run; until then the answer is no.
bool cubeMapsAvailable();
