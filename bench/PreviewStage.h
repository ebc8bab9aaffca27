#pragma once

#include "bench/BenchPictures.h"
#include "bench/BenchView.h"
#include "bench/SampleLevel.h"
#include "bench/TerrainNodes.h"
#include "environment/BackgroundNode.h"
#include "environment/SharedTextures.h"

#include <GL/glext.h>

/// In the place of the level's terrain: draws one of several nodes.
class Switch : public SceneNode {
public:
    std::vector<std::unique_ptr<SceneNode>> ways;
    std::size_t shown = 0;

    void draw(float time) override {
        if (shown < ways.size()) {
            ways[shown]->draw(time);
        }
    }
    void drawSecondPass(float) override {}
    void initGL() override {
        for (const auto &way : ways) {
            way->initGL();
        }
    }
    void writeXml(QTextStream &) const override {}
    bool readXml(QDomElement, CISG *) override { return false; }
};

/// Ways of sending the terrain.
enum Way : std::size_t { shipped, anew, buffers, nothing };
/// The view with the level; its terrain's node is exchanged for a Switch.
class Stage {
public:
    static constexpr int dimension = 80;
    static constexpr int density = 4;

    Stage() : view(viewSide) {
        auto level = std::make_unique<LevelDocument>();
        fillWithHills(*level, dimension, density);
        level->mesh->texture = pictures.files[2];
        level->background->groundTexture = pictures.files[0];
        level->background->waterTexture = pictures.files[1];
        level->background->cubeTexture = pictures.sky();
        background = level->background;
        auto exchange = std::make_unique<Switch>();
        choice = exchange.get();
        auto &nodes = level->root.children;
        for (auto &node : nodes) {
            if (node.get() == level->mesh) {
                choice->ways.push_back(std::move(node));
                node = std::move(exchange);
            }
        }
        choice->ways.push_back(std::make_unique<SentTerrain>(*level->mesh));
        choice->ways.push_back(std::make_unique<BufferedTerrain>(*level->mesh));
        surroundings = std::move(nodes.front());
        nodes.pop_front();
        view.showLevel(std::move(level));
    }

    MeshNode &terrain() const { return *view.document->mesh; }

    /// With the surroundings, a frame has sky, ground frame, outline and water too.
    void setSurroundings(bool shown) {
        auto &nodes = view.document->root.children;
        if (shown && surroundings) {
            nodes.push_front(std::move(surroundings));
        } else if (!shown && !surroundings) {
            surroundings = std::move(nodes.front());
            nodes.pop_front();
        }
    }

    void draw(Way way) {
        choice->shown = way;
        view.drawFrame();
    }

    void setUp() {
        view.setDirty(true);
        draw(shipped);
    }

    void changeGround() {
        const bool another = background->groundTexture == pictures.files[0];
        background->groundTexture = another ? pictures.otherGround() : pictures.files[0];
        setUp();
    }

    /// As for the first time: no picture, no list, no normals are there yet.
    void enter() {
        releaseTexture(background->groundTextureObject);
        releaseTexture(background->waterTextureObject);
        releaseTexture(background->skyTextures.cubeMap);
        releaseTexture(terrain().textureObject);
        changeHeights();
        terrain().markChanged();
        setUp();
    }

    /// Normals are computed only of heights that changed.
    void changeHeights() {
        float &height = terrain().vertices.back().position.y;
        height = -height - 1;
    }

    /// How aslant a surface may be seen and stay sharp; returns the largest ratio so far.
    float setAnisotropy(float ratio) {
        float before = 1;
        for (const GLuint texture :
             {background->groundTextureObject, background->waterTextureObject, terrain().textureObject}) {
            glBindTexture(GL_TEXTURE_2D, texture);
            glGetTexParameterfv(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, &before);
            glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, ratio);
        }
        return before;
    }

    QImage image(Way way) {
        choice->shown = way;
        return view.grabFramebuffer();
    }

    Pictures pictures;

private:
    static constexpr int viewSide = 600;

    BenchView view;
    Switch *choice = nullptr;
    BackgroundNode *background = nullptr;
    std::unique_ptr<SceneNode> surroundings;
};
