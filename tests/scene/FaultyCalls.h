#pragma once

/// Lets one call to the system go wrong, of those a save makes. Linked into a test, it stands
/// between the program and the C library.
namespace faultyCalls {

/// The error that ends the process instead of the call.
inline constexpr int killed = -1;

/// From now on the call of this number (0 is the next one) fails once with the error.
void arm(int number, int error);

/// Ends that; the name of the call that failed, null where none was reached.
const char *disarm();

} // namespace faultyCalls
