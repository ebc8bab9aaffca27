#pragma once

#include <QtGlobal>

/// Holds the toolkit's messages back while it starts. Those of a start that succeeds are printed
/// then; of one that fails, the program prints one line of its own instead. What the toolkit would
/// abort for in that time (it found no display) ends the process with such a line and status 1.
class HeldMessages {
public:
    HeldMessages();
    HeldMessages(const HeldMessages &) = delete;
    HeldMessages &operator=(const HeldMessages &) = delete;
    ~HeldMessages();

    /// Prints what was held, and holds no more.
    void release();
};

/// Prints the one line.
void printCannotStart(const char *why);
