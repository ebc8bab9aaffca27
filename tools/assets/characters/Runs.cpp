#include "tools/assets/characters/Runs.h"

#include <algorithm>
#include <map>
#include <meshoptimizer.h>

namespace {

bool same(const RunCorner &a, const RunCorner &b) {
    return a.vertex == b.vertex && a.texel == b.texel;
}

/// Whether the faces' corners next to the tip join into one fan.
bool extendFan(Run &fan, const RunCorner &tip, const RunCorner &first, const RunCorner &second) {
    if (fan.corners.empty()) {
        fan = {true, {tip, first, second}};
        return true;
    }
    if (!same(fan.corners.front(), tip))
        return false;
    if (same(fan.corners.back(), first))
        fan.corners.push_back(second);
    else if (same(fan.corners[1], second))
        fan.corners.insert(fan.corners.begin() + 1, first);
    else
        return false;
    return true;
}

RunCorner cornerOf(const MeshFace &face, std::size_t slot) {
    return {face.vertex[slot % 3], face.texel[slot % 3]};
}

/// The faces around tips, which stand one after another in the mesh.
std::vector<Run> fansOf(const Mesh &mesh) {
    std::vector<Run> fans;
    std::map<std::pair<unsigned, unsigned>, unsigned> uses;
    for (const MeshFace &face : mesh.faces) {
        for (std::size_t i = 0; face.atTip && i < 3; ++i)
            ++uses[{face.vertex[i], face.texel[i]}];
    }
    for (const MeshFace &face : mesh.faces) {
        if (!face.atTip)
            continue;
        std::size_t tip = 0;
        for (std::size_t i = 1; i < 3; ++i) {
            if (uses[{face.vertex[i], face.texel[i]}] > uses[{face.vertex[tip], face.texel[tip]}])
                tip = i;
        }
        const std::array<RunCorner, 3> corners{cornerOf(face, tip), cornerOf(face, tip + 1),
                                               cornerOf(face, tip + 2)};
        if (fans.empty() || !extendFan(fans.back(), corners[0], corners[1], corners[2]))
            extendFan(fans.emplace_back(), corners[0], corners[1], corners[2]);
    }
    return fans;
}

/// Cuts a strip where it only turns round: there it would draw triangles without an area.
void addStrip(std::vector<Run> &runs, const std::vector<RunCorner> &strip) {
    Run run;
    for (std::size_t i = 2; i < strip.size(); ++i) {
        const bool flat =
            same(strip[i], strip[i - 1]) || same(strip[i], strip[i - 2]) || same(strip[i - 1], strip[i - 2]);
        if (flat) {
            if (!run.corners.empty())
                runs.push_back(std::move(run));
            run = {};
        } else if (!run.corners.empty()) {
            run.corners.push_back(strip[i]);
        } else if (i % 2 == 0) {
            run.corners = {strip[i - 2], strip[i - 1], strip[i]};
        } else {
            // Begins with a triangle that the strip turns the other way: alone, or it would turn the rest.
            runs.push_back({false, {strip[i - 1], strip[i - 2], strip[i]}});
        }
    }
    if (!run.corners.empty())
        runs.push_back(std::move(run));
}

} // namespace

std::vector<Run> runsOf(const Mesh &mesh) {
    std::map<std::pair<unsigned, unsigned>, unsigned> numbers;
    std::vector<RunCorner> corners;
    std::vector<unsigned> list;
    for (const MeshFace &face : mesh.faces) {
        for (std::size_t i = 0; !face.atTip && i < 3; ++i) {
            const auto [at, fresh] = numbers.emplace(std::pair(face.vertex[i], face.texel[i]),
                                                     static_cast<unsigned>(corners.size()));
            if (fresh)
                corners.push_back(cornerOf(face, i));
            list.push_back(at->second);
        }
    }
    // The faces of a ring follow each other: in this order they make longer strips than after
    // sorting for a vertex cache, which immediate mode does not have.
    constexpr unsigned restart = ~0u;
    std::vector<unsigned> words(meshopt_stripifyBound(list.size()));
    words.resize(meshopt_stripify(words.data(), list.data(), list.size(), corners.size(), restart));

    std::vector<Run> runs = fansOf(mesh);
    std::vector<RunCorner> strip;
    for (const unsigned word : words) {
        if (word != restart) {
            strip.push_back(corners[word]);
            continue;
        }
        addStrip(runs, strip);
        strip.clear();
    }
    addStrip(runs, strip);
    return runs;
}
