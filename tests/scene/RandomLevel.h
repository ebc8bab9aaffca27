#pragma once

#include "environment/BackgroundNode.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"

#include <bit>
#include <cmath>
#include <random>
#include <sstream>

/// A level with anything in every field, and beside it the text that its file has to be: written
/// down here a second time, with the numbers of the language's own streams.
class RandomLevel {
public:
    explicit RandomLevel(quint32 seed) : random(seed) {
        out << "<CISG>\n<CISGGroup>\n";
        add<BackgroundNode>(level.root.children, "BackgroundNode");
        add<MeshNode>(level.root.children, "MeshNode");
        add<CharSetNode>(level.root.children, "CharSetNode");
        add<CISGGroup>(level.root.children, "CISGGroup");
        add<CharacterNode>(level.root.children, "CharacterNode");
        out << "</CISGGroup>\n</CISG>\n";
    }

    LevelDocument level;
    int savedPlayers = 0; ///< Of the level's set.

    QByteArray text() const { return QByteArray::fromStdString(out.str()); }

private:
    bool oneIn(unsigned chances) { return random() % chances == 0; }

    bool any(bool &flag) { return flag = oneIn(2); }
    int any(int &number) {
        return number = oneIn(3) ? static_cast<int>(random()) : static_cast<int>(random() % 6) - 2;
    }
    float any(float &number) {
        const auto bits = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        const auto plain = static_cast<float>(static_cast<int>(random() % 2000) - 1000) / 16;
        return number = std::isfinite(bits) && oneIn(3) ? bits : plain;
    }
    template <std::size_t N>
    std::string any(std::array<float, N> &numbers) {
        std::ostringstream text;
        for (std::size_t i = 0; i < N; ++i) {
            text << (i > 0 ? " " : "") << any(numbers[i]);
        }
        return text.str();
    }
    std::string any(QString &text) {
        static const std::vector<std::pair<QString, std::string>> pieces{
            {" #'+./:;>AZ[\\]`az{|}~]]>", " #'+./:;>AZ[\\]`az{|}~]]>"},
            {"&<\"", "&amp;&lt;&quot;"},
            {"\t\n\r\u007f", "&#9;&#10;&#13;&#127;"},
            {"\u00e9\u4e2d\U0001F600", "&#233;&#20013;&#128512;"}};
        std::string written;
        text.clear();
        while (!oneIn(3)) {
            const auto &[plain, escaped] = pieces[random() % pieces.size()];
            text += plain;
            written += escaped;
        }
        return '"' + written + '"';
    }

    template <typename Node, typename Nodes>
    void add(Nodes &nodes, const char *tag) {
        nodes.push_back(level.createNode(tag));
        fill(dynamic_cast<Node &>(*nodes.back()));
    }

    void fill(CISGGroup &group) {
        out << "<CISGGroup>\n";
        while (oneIn(3)) {
            add<CISGGroup>(group.children, "CISGGroup");
            add<MeshNode>(group.children, "MeshNode");
        }
        out << "</CISGGroup>\n";
    }

    void fill(BackgroundContent &node) {
        out << "<BackgroundNode  groundTexture=" << any(node.groundTexture);
        out << " waterTexture=" << any(node.waterTexture) << " cubeTexture=" << any(node.cubeTexture);
        out << " birdTexture=" << any(node.birdTexture) << ">\n";
        out << any(node.groundColor) << ' ' << any(node.waterColor) << ' ' << any(node.sunColor);
        out << ' ' << any(node.dayTime) << ' ' << any(node.water) << ' ' << any(node.fog);
        out << ' ' << any(node.waterWalking) << ' ' << any(node.craters) << ' ' << any(node.bengala);
        out << ' ' << any(node.deathTouch) << ' ' << any(node.dynamicTime) << ' ' << any(node.sunSpeed);
        out << ' ' << any(node.gravity) << ' ' << any(node.birdsNumber) << "</BackgroundNode>\n";
    }

    void fill(TerrainMesh &node) {
        node.setSize(static_cast<int>(random() % 6) - 2, static_cast<int>(random() % 4));
        out << "<MeshNode randomGeography=\"" << any(node.randomGeography);
        out << "\" texture=" << any(node.texture) << " density=\"" << node.density << "\" dimension=\"";
        out << node.dimension << "\"  color=\"" << any(node.color) << "\">\n";
        if (!node.randomGeography) {
            node.build([this] {
                float height = 0;
                out << any(height) << ' ';
                return height;
            });
        }
        out << "</MeshNode>\n";
    }

    /// Whether the player is one that a file holds.
    bool fill(PlayerContent &player) {
        std::ostringstream text;
        text << "<CharacterNode  name=" << any(player.name) << ">\n";
        text << ' ' << any(player.modelIndex) << ' ' << any(player.waitFor) << ' ' << any(player.weaponValue);
        text << ' ' << any(player.teamIndex) << ' ' << any(player.cell) << "</CharacterNode>\n";
        any(player.placed);
        const bool saved = any(player.active) && (player.placed || player.cell == -1);
        out << (saved ? text.str() : std::string());
        return saved;
    }

    void fill(CharSetNode &set) {
        out << "<CharSetNode>\n";
        for (auto left = random() % 24; left > 0; --left) {
            set.characters.push_back(std::make_unique<CharacterNode>());
            savedPlayers += fill(*set.characters.back()) ? 1 : 0;
        }
        while (oneIn(2)) {
            add<CISGGroup>(set.others, "CISGGroup");
            add<BackgroundNode>(set.others, "BackgroundNode");
        }
        out << "</CharSetNode>\n";
    }

    std::mt19937 random;
    std::ostringstream out;
};
