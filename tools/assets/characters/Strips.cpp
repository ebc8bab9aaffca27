#include "tools/assets/characters/Strips.h"

#include <map>
#include <meshoptimizer.h>

std::vector<Strip> stripsOf(const Mesh &mesh) {
    std::map<std::pair<unsigned, unsigned>, unsigned> numbers;
    std::vector<StripCorner> corners;
    std::vector<unsigned> list;
    for (const MeshFace &face : mesh.faces) {
        for (std::size_t i = 0; i < 3; ++i) {
            const auto [at, fresh] = numbers.emplace(std::pair(face.vertex[i], face.texel[i]),
                                                     static_cast<unsigned>(corners.size()));
            if (fresh)
                corners.push_back({face.vertex[i], face.texel[i]});
            list.push_back(at->second);
        }
    }
    std::vector<unsigned> ordered(list.size());
    meshopt_optimizeVertexCacheStrip(ordered.data(), list.data(), list.size(), corners.size());
    constexpr unsigned restart = ~0u;
    std::vector<unsigned> words(meshopt_stripifyBound(list.size()));
    words.resize(meshopt_stripify(words.data(), ordered.data(), ordered.size(), corners.size(), restart));

    std::vector<Strip> strips(1);
    for (const unsigned word : words) {
        if (word == restart)
            strips.emplace_back();
        else
            strips.back().push_back(corners[word]);
    }
    return strips;
}
