#pragma once

#include <QByteArrayView>

/// The most bytes of a level file: 16 MiB.
inline constexpr qsizetype mostLevelBytes = qsizetype{16} * 1024 * 1024;

/// Whether a level file's bytes may be given to the XML reader, judged by one pass over them: at
/// most 16 MiB, elements nested at most 256 deep, at most 100,000 elements, at most 64 attributes
/// in one element and 500,000 in all, of at most 65,536 characters each (a
/// reference is one), at most 100,000 comments, instructions, CDATA sections and
/// references to what a document type may declare elsewhere, no declarations in the file itself,
/// no zero bytes. What the toolkit's reader does with more than that (minutes, gigabytes, a crash)
/// is not left to chance. Says nothing about whether the file is well-formed.
bool levelIsSafeToParse(QByteArrayView bytes);
