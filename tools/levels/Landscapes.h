#pragma once

class Sculptor;

/// The sample levels' terrains, each shaped from a flat map. Seen in the preview as it starts, high columns
/// and low rows are nearest.

void shapeLakeValley(Sculptor &sculptor);
void shapeIslands(Sculptor &sculptor);
void shapeCrater(Sculptor &sculptor);
void shapePass(Sculptor &sculptor);
void shapeGorge(Sculptor &sculptor);
void shapeMeadow(Sculptor &sculptor);
