#pragma once

#include "models/Md2Content.h"

#include <QByteArrayView>

/// Decodes a model file held in memory. Nothing in the file is trusted: every count, offset, index
/// and number is checked against the file's real size before anything is allocated or read, so
/// memory stays within a small multiple of that size.
class Md2Decoder {
public:
    /// Keeps a view of the bytes, which must outlive the decoder.
    explicit Md2Decoder(QByteArrayView file);

    /// Whether the file could be decoded. `header` holds the file's own in either case, `content`
    /// its lists on success, `problem` what is wrong otherwise.
    bool decode();

    Md2Header header;
    Md2Content content;
    const char *problem = "";

private:
    bool readHeader();
    bool readSkinNames();
    bool readFrames();
    bool readFrame(const char *record, Md2Frame &frame);
    bool readGLCommands();
    template <typename Record, typename Word>
    bool readRecords(std::int32_t offset, std::int32_t count, std::vector<Record> &records);
    const char *section(std::int32_t offset, std::int32_t count, std::uint64_t recordSize);
    bool fail(const char *reason);

    QByteArrayView file_;
};
