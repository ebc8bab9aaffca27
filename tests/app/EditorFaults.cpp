#include "EditorFaults.h"

#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "tests/support/levelBytes.h"

#include <QCryptographicHash>
#include <cmath>
#include <set>

namespace {

QByteArray faultOfLevel(const EditorDriver &editor) {
    const LevelDocument &level = editor.level();
    if (level.background == nullptr || level.mesh == nullptr || level.charSet == nullptr) {
        return "a node is missing";
    }
    const MeshNode &mesh = *level.mesh;
    const auto side = static_cast<std::size_t>(mesh.pointsPerSide());
    if (mesh.vertices.size() != side * side) {
        return "the grid is not square";
    }
    if (!std::all_of(mesh.vertices.begin(), mesh.vertices.end(),
                     [](const TerrainVertex &vertex) { return std::isfinite(vertex.position.y); })) {
        return "a height is not finite";
    }
    if (level.charSet->characters.size() < CharSetNode::slotCount) {
        return "there are less than sixteen players";
    }
    const auto &cells = editor.window->mapView->cells->cells;
    if (cells.size() != 400) {
        return "there are not 400 cells";
    }
    for (const MapCell &cell : cells) {
        const auto &all = level.charSet->characters;
        if (!cell.vacant && std::none_of(all.begin(), all.end(),
                                         [&](const auto &player) { return player.get() == cell.player; })) {
            return "a cell holds a player of no level";
        }
    }
    return {};
}

QByteArray faultOfCounts(const EditorDriver &editor) {
    int players = 0;
    std::set<int> teams;
    for (std::size_t i = 0; i < CharSetNode::slotCount; ++i) {
        const CharacterNode &player = editor.player(i);
        if (player.active && (player.placed || editor.window->randomStart->isChecked())) {
            ++players;
            if (player.teamIndex >= 0 && player.teamIndex <= 3) {
                teams.insert(player.teamIndex);
            }
        }
    }
    const bool agree = editor.window->countActivePlayers() == players &&
                       editor.window->countActiveTeams() == int(teams.size()) &&
                       editor.window->numPlayer->value() == players &&
                       editor.window->numTeams->value() == int(teams.size());
    return agree ? QByteArray() : "the counts are wrong";
}

/// The colour in the middle of a button's or an item's icon.
QColor middleOf(const QIcon &icon, const QSize &size) {
    const QImage picture = icon.pixmap(size, 1.0).toImage();
    return picture.isNull() ? QColor() : picture.pixelColor(picture.rect().center());
}

QByteArray faultOfColors(const EditorDriver &editor) {
    const editorMain &window = *editor.window;
    const std::array<float, 4> &sun = editor.environment().sunColor;
    for (const auto &[button, color] : {std::pair(window.TerrainColor, editor.level().mesh->color),
                                        {window.SunColor, {sun[0], sun[1], sun[2]}},
                                        {window.WaterColor, editor.environment().waterColor}}) {
        if (!shows(middleOf(button->icon(), QSize(36, 14)), color[0], color[1], color[2])) {
            return button->objectName().toUtf8() + " shows another colour";
        }
    }
    const std::array<QColor, 4> teams{Qt::blue, Qt::green, Qt::red, Qt::white};
    for (std::size_t i = 0; i < CharSetNode::slotCount; ++i) {
        const CharacterNode &player = editor.player(i);
        const QColor dot = middleOf(window.CharID->itemIcon(int(i)), QSize(16, 16));
        const bool isFull = player.active && player.placed;
        const bool hasTeam = player.teamIndex >= 0 && player.teamIndex <= 3;
        if (isFull ? hasTeam && dot != teams[std::size_t(player.teamIndex)] : dot.alpha() != 0) {
            return "a dot shows another team";
        }
    }
    return {};
}

/// What a control or a label shows.
QString shownBy(const QWidget *control) {
    if (const auto *const button = qobject_cast<const QAbstractButton *>(control)) {
        return button->isChecked() ? QStringLiteral("yes") : QStringLiteral("no");
    }
    if (const auto *const box = qobject_cast<const QComboBox *>(control)) {
        return box->currentIndex() < 0 ? box->placeholderText() : box->currentText();
    }
    if (const auto *const number = qobject_cast<const QSpinBox *>(control)) {
        return QString::number(number->value());
    }
    return static_cast<const QLabel *>(control)->text();
}

QString yesOrNo(bool value) {
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

QByteArray faultOfValues(const EditorDriver &editor) {
    const BackgroundNode &environment = editor.environment();
    const editorMain &window = *editor.window;
    const CharacterNode &player = editor.player(static_cast<std::size_t>(window.CharID->currentIndex()));
    const QMap<int, QString> times{{70, "noon"},     {30, "sunrise"}, {50, "morning"}, {111, "afternoon"},
                                   {151, "evening"}, {171, "night"},  {131, "sunset"}};
    const QMap<float, QString> gravities{{9.8F, "normal"}, {12.5F, "high"}, {6.4F, "low"}};
    const QMap<int, QString> sizes{{40, "Small"}, {60, "Medium"}, {80, "Large"}, {2, "Low"}, {4, "High"}};
    const auto pictureOf = [](const QString &path) {
        const QString name = path.section(u'/', 3, 3).section(u'.', 0, 0);
        return name.isEmpty() ? path : name;
    };
    const QString sky = environment.cubeTexture.section(u'/', 3, 3);
    const std::vector<std::pair<const QWidget *, QString>> values{
        {window.water, yesOrNo(environment.water)},
        {window.Fog, yesOrNo(environment.fog)},
        {window.waterWalking, yesOrNo(environment.waterWalking)},
        {window.craters, yesOrNo(environment.craters)},
        {window.bengala, yesOrNo(environment.bengala)},
        {window.deathTouch, yesOrNo(environment.deathTouch)},
        {window.DynamicTime, yesOrNo(environment.dynamicTime)},
        {window.randomGeo, yesOrNo(editor.level().mesh->randomGeography)},
        {window.randomStart, yesOrNo(editor.player(0).cell == CharacterNode::randomStart)},
        {window.dayTime, times.value(environment.dayTime)},
        {window.gravity, gravities.value(environment.gravity)},
        {window.sunSpeed, QString::number(std::clamp(environment.sunSpeed, 2, 18))},
        {window.birdsNumber, QString::number(std::clamp(environment.birdsNumber, 0, 15))},
        {window.TerrainTextureType, pictureOf(environment.groundTexture)},
        {window.waterTextureType, pictureOf(environment.waterTexture)},
        {window.SkyTextureType, sky.isEmpty() ? environment.cubeTexture : sky},
        {window.birdTextureType, pictureOf(environment.birdTexture)},
        {window.DimensionTextLabel, sizes.value(window.mapView->dimension)},
        {window.AccuracyTextLabel, sizes.value(window.mapView->accuracy)},
        {window.activeNow, yesOrNo(player.active)},
        {window.textLabelName, player.name},
        {window.textLabelCharacter, player.model},
        {window.textLabelWeapon, player.weapon},
        {window.textLabelTeam, player.team},
        {window.textLabelWait, QString::number(player.waitFor)},
        {window.textLabelPlaced, yesOrNo(player.placed)}};
    for (const auto &[control, value] : values) {
        if (shownBy(control) != value) {
            return QStringLiteral("%1 shows %2, not %3")
                .arg(control->objectName(), shownBy(control), value)
                .toUtf8();
        }
    }
    return {};
}

QByteArray faultOfStates(const EditorDriver &editor) {
    const editorMain &window = *editor.window;
    const BackgroundNode &environment = editor.environment();
    for (const auto &[control, isUsable] : std::initializer_list<std::pair<const QWidget *, bool>>{
             {window.waterWalking, environment.water},
             {window.WaterColor, environment.water},
             {window.textLabel2_2, environment.water},
             {window.WaterTextureGroup, environment.water},
             {window.sunSpeed, environment.dynamicTime},
             {window.sunMoving, environment.dynamicTime},
             {window.birdTextureGroup, environment.birdsNumber > 0},
             {window.groupBox4, window.activeNow->isChecked()}}) {
        if (control->isEnabled() != isUsable) {
            return control->objectName().toUtf8() + " is wrongly enabled or disabled";
        }
    }
    const GLMapWidget &view = *window.mapView;
    const bool agree = window.Preview->isChecked() == view.preview &&
                       window.Wired->isVisible() == view.preview &&
                       window.centerTrack->isVisible() == view.preview &&
                       window.Wired->isChecked() == (editor.level().mesh->wired != 0);
    return agree ? QByteArray() : "the tool bar does not show what the view does";
}

/// A level as undo has to return to it: what a save would write, what it would leave out, and the
/// cells.
QByteArray levelIn(const EditorDriver &editor) {
    QByteArray bytes = levelBytes(editor.level());
    for (const TerrainVertex &vertex : editor.level().mesh->vertices) {
        bytes.append(reinterpret_cast<const char *>(&vertex.position.y), sizeof(float));
    }
    QDataStream out(&bytes, QIODevice::Append);
    const auto &players = editor.level().charSet->characters;
    for (const auto &player : players) {
        out << player->name << player->model << player->modelIndex << player->team << player->teamIndex
            << player->weapon << player->weaponValue << player->waitFor << player->cell << player->placed
            << player->active;
    }
    for (const MapCell &cell : editor.window->mapView->cells->cells) {
        const bool leaving = !cell.vacant && cell.player->active && cell.player->cell != cell.index;
        const auto stands = [&](const auto &player) {
            return !cell.vacant && !leaving && player.get() == cell.player;
        };
        out << cell.color[0] << cell.color[1] << cell.color[2] << cell.water
            << int(std::find_if(players.begin(), players.end(), stands) - players.begin());
    }
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5);
}

} // namespace

QByteArray faultOf(const EditorDriver &editor) {
    for (const auto &check : {faultOfLevel, faultOfCounts, faultOfColors, faultOfValues, faultOfStates}) {
        const QByteArray fault = check(editor);
        if (!fault.isEmpty()) {
            return fault;
        }
    }
    return {};
}

QByteArray faultOfFile(const EditorDriver &editor) {
    const QByteArray saved = levelBytes(editor.level());
    LevelDocument again;
    const bool isRead = readLevel(again, saved);
    again.complete();
    return isRead && levelBytes(again) == saved ? QByteArray() : "the level does not open again as it is";
}

QByteArray viewOf(const EditorDriver &editor) {
    const GLMapWidget &view = *editor.window->mapView;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    // The next paint brings back what was zoomed too far.
    const float zoom = std::min(view.zoom, 1.6F);
    out << view.preview << view.document->mesh->wired << zoom << view.eyeHeight << view.center.x
        << view.center.y << view.center.z;
    for (std::size_t i = 0; i < 16; ++i) {
        out << view.viewRotation[i];
    }
    for (const MapCell &cell : view.cells->cells) {
        out << cell.selected;
    }
    return bytes;
}

StepMemory::StepMemory(const EditorDriver &driven)
    : editor(driven), stack(*driven.window->findChild<QUndoStack *>()) {
    QObject::connect(&stack, &QUndoStack::indexChanged, &listener, [this] { seeStep(); });
    fault();
}

/// Another level starts the history again.
void StepMemory::startAgainWithAnotherLevel() {
    if (document != &editor.level()) {
        document = &editor.level();
        levels.clear();
    }
}

void StepMemory::seeStep() {
    startAgainWithAnotherLevel();
    const QUndoCommand *const step = stack.index() > 0 ? stack.command(stack.index() - 1) : nullptr;
    const QByteArray now = levelIn(editor);
    const auto known = levels.find(step);
    const auto before = levels.find(last);
    if (known == levels.end() && before != levels.end() && before->second == now) {
        complaint = "a step changes nothing";
    } else if (step != last && known != levels.end() && known->second != now) {
        complaint = "undo or redo leads to another level";
    }
    levels[step] = now;
    last = step;
    std::erase_if(levels, [this](const auto &level) {
        bool isThere = level.first == nullptr;
        for (int i = 0; i < stack.count(); ++i) {
            isThere = isThere || level.first == stack.command(i);
        }
        return !isThere;
    });
}

QByteArray StepMemory::fault() {
    startAgainWithAnotherLevel();
    const QByteArray now = levelIn(editor);
    if (levels.emplace(last, now).first->second != now) {
        complaint = "the level changed without a step";
    }
    return std::exchange(complaint, {});
}

void StepMemory::walk(bool back) {
    const int wanted = std::clamp(stack.index() + (back ? -1 : 1), 0, stack.count());
    editor.activate();
    QTest::keyClick(editor.window.get(), Qt::Key_Z,
                    back ? Qt::ControlModifier : Qt::ControlModifier | Qt::ShiftModifier);
    if (stack.index() != wanted) {
        complaint = "undo or redo does not walk";
    } else if (complaint.isEmpty()) {
        complaint = faultOf(editor);
    }
}

void StepMemory::walkAllTheWay() {
    const QByteArray view = viewOf(editor);
    while (stack.canUndo() && complaint.isEmpty()) {
        walk(true);
    }
    while (stack.canRedo() && complaint.isEmpty()) {
        walk(false);
    }
    if (viewOf(editor) != view) {
        complaint = "undo or redo changes the view";
    }
}
