#include "tools/sheet/CharacterSheet.h"

#include "models/Md2Model.h"
#include "scene/CharacterNames.h"
#include "tools/sheet/FigurePainter.h"
#include "tools/sheet/Sheet.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cstdio>

namespace {

/// The files of one character's directory.
struct Character {
    Md2Model figure;
    std::array<QImage, teamNames.size()> skins;
    std::array<Md2Model, weaponNames.size()> weapons;
    std::array<QImage, weaponNames.size()> weaponSkins;

    bool load(const QDir &directory) {
        const auto model = [&](Md2Model &target, const QString &name) {
            return target.Load(
                QFile::encodeName(directory.filePath(name + QStringLiteral(".md2"))).toStdString(), {});
        };
        const auto picture = [&](const char *name) {
            return QImage(directory.filePath(QLatin1String(name) + QStringLiteral(".png")));
        };
        bool loaded = model(figure, QStringLiteral("tris"));
        for (std::size_t i = 0; i < weapons.size(); ++i) {
            loaded = loaded && model(weapons[i], QLatin1String(weaponNames[i]));
            weaponSkins[i] = picture(weaponNames[i]);
        }
        for (std::size_t i = 0; i < skins.size(); ++i)
            skins[i] = picture(teamNames[i]);
        return loaded;
    }

    QImage seen(const FigureView &view, std::size_t frame, std::size_t team, std::size_t weapon) const {
        FigurePainter painter(view);
        painter.add(figure, frame, skins[team]);
        painter.add(weapons[weapon], frame, weaponSkins[weapon]);
        return painter.picture();
    }
};

Vec3 middleOf(const Md2Content &model) {
    Vec3 low{1e9F, 1e9F, 1e9F};
    Vec3 high{-1e9F, -1e9F, -1e9F};
    for (const Md2Vertex &vertex : model.frames.front().vertices) {
        const Vec3 &p = vertex.position;
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
    return {0.5F * (low.x + high.x), 0.5F * (low.y + high.y), 0.5F * (low.z + high.z)};
}

void addSides(Sheet &sheet, const Character &character) {
    FigureView view;
    view.elevation = 12;
    for (std::size_t team = 0; team < teamNames.size(); ++team) {
        for (std::size_t weapon = 0; weapon < weaponNames.size(); ++weapon) {
            for (const float turn : {0.0F, 90.0F, 180.0F, 270.0F}) {
                view.azimuth = previewAzimuth + turn;
                sheet.add(character.seen(view, 0, team, weapon),
                          QStringLiteral("%1, %2").arg(QLatin1String(teamNames[team]),
                                                       QLatin1String(weaponNames[weapon])));
            }
        }
    }
}

void addHands(Sheet &sheet, const Character &character) {
    FigureView view;
    view.scale = 12;
    for (std::size_t weapon = 0; weapon < weaponNames.size(); ++weapon) {
        view.centre = middleOf(character.weapons[weapon]);
        const std::array<std::array<float, 2>, 4> sides{{{-60, 0}, {30, 0}, {120, 0}, {30, -55}}};
        for (const auto &[azimuth, elevation] : sides) {
            view.azimuth = azimuth;
            view.elevation = elevation;
            sheet.add(character.seen(view, 0, 0, weapon), QLatin1String(weaponNames[weapon]));
        }
    }
}

Sheet movesOf(const Character &character) {
    FigureView view;
    view.azimuth = previewAzimuth;
    view.elevation = previewElevation;
    view.size = QSize(150, 180);
    view.scale = 2.1F;
    view.centre.z = 26;
    Sheet sheet(view.size, 18);
    for (std::size_t frame = 0; frame < character.figure.frames.size(); ++frame)
        sheet.add(character.seen(view, frame, 0, weaponNames.size() - 1),
                  QString::fromStdString(character.figure.frames[frame].name));
    return sheet;
}

void print(const char *name, const Md2Content &model) {
    const Wholeness whole = wholeness(model, {0, 5, 10, 15, 20, 25, 30, 35});
    std::printf("%-14s %4zu triangles, inside %.3f %% in the mean, at worst %.2f %% (azimuth %.0f, elevation "
                "%.0f, frame %zu), mean excursion %.2f\n",
                name, model.triangles.size(), 100 * whole.mean, 100 * whole.worst,
                static_cast<double>(whole.worstView.azimuth), static_cast<double>(whole.worstView.elevation),
                whole.worstFrame, static_cast<double>(meanExcursion(model, 0, 40)));
}

} // namespace

bool saveCharacterSheets(const QString &directory, const QString &output) {
    Character character;
    if (!character.load(QDir(directory)))
        return false;
    Sheet sheet(FigureView().size, 12);
    addSides(sheet, character);
    addHands(sheet, character);
    const QString name = QDir(output).filePath(QDir(directory).dirName());
    return sheet.save(name + QStringLiteral(".png")) &&
           movesOf(character).save(name + QStringLiteral("-moves.png"));
}

bool printMeasures(const QString &directory) {
    Character character;
    if (!character.load(QDir(directory)))
        return false;
    print(qPrintable(QDir(directory).dirName()), character.figure);
    for (std::size_t i = 0; i < weaponNames.size(); ++i)
        print(weaponNames[i], character.weapons[i]);
    return true;
}
