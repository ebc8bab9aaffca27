#include "models/Md2Model.h"
#include "scene/CharacterNames.h"
#include "tools/sheet/FigurePainter.h"
#include "tools/sheet/Sheet.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <cmath>
#include <cstdio>

namespace {

struct Weapon {
    QString name;
    Md2Model model;
    QImage skin;
};

void measure(const char *name, const Md2Content &model) {
    const Wholeness whole = wholeness(model, {0, 5, 10, 15, 20, 25, 30, 35});
    std::printf("%-14s %4zu triangles, inside %.3f %% in the mean, at worst %.2f %% (azimuth %.0f, "
                "elevation %.0f, frame %zu), mean excursion %.2f\n",
                name, model.triangles.size(), 100 * whole.mean, 100 * whole.worst,
                static_cast<double>(whole.worstView.azimuth), static_cast<double>(whole.worstView.elevation),
                whole.worstFrame, static_cast<double>(meanExcursion(model, 0, 40)));
}

} // namespace

/// Measures one figure and shows it from all sides, near its hands and in motion.
/// Usage: druvelk-figure CHARACTER_DIRECTORY OUTPUT.png [TEAM]
/// Needs no display (QT_QPA_PLATFORM=offscreen). Without skins the figure is grey; insides are magenta.
int main(int argc, char **argv) {
    const QGuiApplication application(argc, argv);
    if (argc < 3) {
        std::fputs("usage: druvelk-figure CHARACTER_DIRECTORY OUTPUT.png [TEAM]\n", stderr);
        return 2;
    }
    const QDir directory(QFile::decodeName(argv[1]));
    const auto load = [&](Md2Model &model, const QString &file) {
        return model.Load(QFile::encodeName(directory.filePath(file)).toStdString(), {});
    };
    Md2Model figure;
    std::array<Weapon, weaponNames.size()> weapons;
    bool loaded = load(figure, QStringLiteral("tris.md2"));
    for (std::size_t i = 0; i < weapons.size(); ++i) {
        weapons[i].name = QLatin1String(weaponNames[i]);
        loaded = loaded && load(weapons[i].model, weapons[i].name + QStringLiteral(".md2"));
        weapons[i].skin.load(directory.filePath(weapons[i].name + QStringLiteral(".png")));
    }
    if (!loaded) {
        std::fputs("a model cannot be read\n", stderr);
        return 1;
    }
    const QImage skin(
        directory.filePath(QLatin1String(argc > 3 ? argv[3] : "Blue") + QStringLiteral(".png")));
    measure("figure", figure);
    for (std::size_t i = 0; i < weapons.size(); ++i)
        measure(weaponNames[i], weapons[i].model);

    Sheet sheet({280, 320}, 8);
    const auto show = [&](const FigureView &view, std::size_t frame, const Weapon &weapon,
                          const QString &caption) {
        FigurePainter painter(view);
        painter.add(figure, frame, skin);
        painter.add(weapon.model, frame, weapon.skin);
        sheet.add(painter.picture(), caption);
    };
    FigureView view;
    for (int turn = 0; turn < 8; ++turn) {
        view.azimuth = previewAzimuth + static_cast<float>(turn) * 45.0F;
        view.elevation = turn % 2 == 0 ? 20.0F : 0.0F;
        show(view, 0, weapons[2], QStringLiteral("from %1").arg(static_cast<double>(view.azimuth)));
    }
    view.scale = 13;
    for (const Weapon &weapon : weapons) {
        // About where the right hand is: the rear third of the weapon.
        Vec3 low{1e9F, 1e9F, 1e9F};
        Vec3 high{-1e9F, -1e9F, -1e9F};
        for (const Md2Vertex &vertex : weapon.model.frames[0].vertices) {
            const Vec3 &p = vertex.position;
            low = {std::fmin(low.x, p.x), std::fmin(low.y, p.y), std::fmin(low.z, p.z)};
            high = {std::fmax(high.x, p.x), std::fmax(high.y, p.y), std::fmax(high.z, p.z)};
        }
        view.centre = {0.5F * (low.x + high.x), 0.5F * (low.y + high.y), 0.5F * (low.z + high.z)};
        for (const float azimuth : {-60.0F, 30.0F, 120.0F, 210.0F}) {
            view.azimuth = azimuth;
            view.elevation = azimuth > 200 ? 60.0F : 0.0F;
            show(view, 0, weapon, weapon.name);
        }
        view.elevation = -60;
        view.azimuth = 30;
        show(view, 0, weapon, weapon.name + QStringLiteral(", below"));
        for (const std::size_t frame : {std::size_t{10}, std::size_t{20}, std::size_t{30}}) {
            view.azimuth = previewAzimuth;
            view.elevation = previewElevation;
            show(view, frame, weapon, weapon.name + QStringLiteral(", frame %1").arg(frame));
        }
    }
    view = {};
    view.azimuth = previewAzimuth;
    view.elevation = previewElevation;
    for (std::size_t frame = 0; frame < 40; frame += 2)
        show(view, frame, weapons[2], QStringLiteral("frame %1").arg(frame));
    for (std::size_t frame = 40; frame < figure.frames.size(); ++frame)
        show(view, frame, weapons[2], QString::fromStdString(figure.frames[frame].name));
    return sheet.save(QFile::decodeName(argv[2])) ? 0 : 1;
}
