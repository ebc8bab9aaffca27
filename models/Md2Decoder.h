#pragma once

#include "models/Md2Content.h"

#include <QByteArrayView>

/// Decodes a model file held in memory. Nothing in the file is trusted: every count, offset, index
/// and number is checked against the file's real size before anything is allocated, so memory stays
/// within a small multiple of that size.
class Md2Decoder {
public:
    /// Keeps a view of the bytes, which must outlive the decoder.
    explicit Md2Decoder(QByteArrayView file);

    /// Whether the file can be decoded. `header` holds the file's own in either case; `problem`
    /// says what is wrong with it otherwise.
    bool check();

    /// Replaces the lists by those of the file, which must have passed the check.
    void decode(Md2Content &content) const;

    Md2Header header;
    const char *problem = "";

private:
    bool checkHeader();
    bool checkFrames();
    bool checkGLCommands();
    bool checkRun(std::size_t at, std::uint64_t length);
    bool isInside(std::int32_t offset, std::int32_t count, std::uint64_t recordSize) const;
    bool fail(const char *reason);

    std::size_t frameSize() const;
    const char *at(std::int32_t offset) const;
    std::int32_t commandWord(std::size_t index) const;
    template <typename Word, typename Record>
    void copyRecords(std::int32_t offset, std::int32_t count, std::vector<Record> &records) const;

    QByteArrayView file_;
};
