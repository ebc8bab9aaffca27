#pragma once

#include "map/TerrainMesh.h"

#include <QByteArray>
#include <string>
#include <vector>

/// The least that each piece of work on a level must do, written as bare as possible.

/// A grid's two arrays, as large as TerrainMesh's.
struct BareGrid {
    std::vector<TerrainVertex> vertices;
    std::vector<TerrainTriangle> triangles;
};

/// Fills both arrays, with face normals, for N = dimension × density points a side.
BareGrid bareGrid(const std::vector<float> &heights, int dimension, int density);

/// Scans the bytes, lets the DOM parse them, turns the numbers of the terrain into floats and
/// fills the arrays.
BareGrid bareReading(const QByteArray &bytes, int dimension, int density);

/// Writes every height as text into `text`; returns its length.
std::size_t bareText(const std::vector<float> &heights, std::string &text);

/// Writes the bytes into a file and waits until they are on the disk; false where that fails.
bool bareWriting(const std::string &fileName, const QByteArray &bytes);

/// Face normals of a height field, then their sums around every inner point.
void bareNormals(const std::vector<float> &heights, int n, float step, std::vector<Vec3> &faces,
                 std::vector<Vec3> &sums);

/// Replaces each inner height by the mean of its eight neighbours, forwards and backwards in turn.
void bareErosion(std::vector<float> &heights, int n, int passes);
