#pragma once

#include "environment/BackgroundNode.h"
#include "tests/support/ViewDriver.h"

#include <GL/glu.h>

/// Looks at the preview where a point of the world is shown, and makes the small pictures it needs.
class PreviewProbe {
public:
    explicit PreviewProbe(GLMapWidget &probed) : view(probed) {}

    /// One-coloured pictures for ground, terrain, water and sky below the working directory.
    static bool makePictures(QColor ground, QColor water, QColor sky,
                             const QString &name = QStringLiteral("test")) {
        const QString textures = QStringLiteral("data/textures/");
        const QString skies = QStringLiteral("data/CubeMap/") + name;
        bool made = QDir().mkpath(textures) && QDir().mkpath(skies);
        made = made && filled(ground).save(textures + name + QStringLiteral("Ground.png"));
        made = made && filled(water).save(textures + name + QStringLiteral("Water.png"));
        for (const char *face : {"negx", "posx", "negy", "posy", "negz", "posz"}) {
            made = made && filled(sky).save(skies + QStringLiteral("/mount_") + QLatin1String(face) +
                                            QStringLiteral(".png"));
        }
        return made;
    }

    static void usePictures(LevelDocument &level, const QString &name = QStringLiteral("test")) {
        const QString textures = QStringLiteral("./data/textures/") + name;
        level.mesh->texture = textures + QStringLiteral("Ground.png");
        level.background->groundTexture = level.mesh->texture;
        level.background->waterTexture = textures + QStringLiteral("Water.png");
        level.background->cubeTexture =
            QStringLiteral("./data/CubeMap/") + name + QStringLiteral("/mount.png");
    }

    /// Takes a picture that `at` reads from.
    void look() { image = view.grabFramebuffer(); }

    /// Where a point of the world lies in the last picture, in device pixels.
    QPoint place(double x, double y, double z) const {
        double wx = 0;
        double wy = 0;
        double wz = 0;
        gluProject(x, y, z, view.modelview.data(), view.projection.data(), view.viewport.data(), &wx, &wy,
                   &wz);
        return {qRound(wx), qRound(view.viewport[3] - wy)};
    }

    QColor at(double x, double y, double z) const { return image.pixelColor(place(x, y, z)); }

    QColor at(QPoint position) const { return image.pixelColor(position); }

    /// Sets heights by a function of x and z, and has them drawn.
    template <typename HeightAt>
    void shape(HeightAt heightAt) {
        MeshNode &mesh = *view.document->mesh;
        for (TerrainVertex &vertex : mesh.vertices) {
            vertex.position.y = heightAt(vertex.position.x, vertex.position.z);
        }
        mesh.markChanged();
        mesh.computeNormals();
        view.update();
    }

    const QImage &picture() const { return image; }

private:
    static QImage filled(QColor color) {
        QImage image(16, 16, QImage::Format_RGB32);
        image.fill(color);
        return image;
    }

    GLMapWidget &view;
    QImage image;
};

inline int brightness(const QColor &color) {
    return color.red() + color.green() + color.blue();
}
