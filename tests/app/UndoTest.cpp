#include "EditorDriver.h"

#include "app/InitDialog.h"
#include "models/PlayerDialog.h"

#include <QColorDialog>
#include <QCryptographicHash>
#include <QUndoStack>
#include <malloc.h>
#include <random>

namespace {

/// What has to return: the bytes a save would write, the cells, and what every control shows.
struct Seen {
    QByteArray level;
    QByteArray cells;
    QStringList controls;
    int slot = 0; ///< The player whose panel was shown.
};

/// What undo must not touch.
QByteArray viewOf(const GLMapWidget &view) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << view.preview << view.document->mesh->wired << view.zoom << view.eyeHeight << view.center.x
        << view.center.y << view.center.z;
    for (int i = 0; i < 16; ++i) {
        out << view.viewRotation[std::size_t(i)];
    }
    for (const MapCell &cell : view.cells->cells) {
        out << cell.selected;
    }
    return bytes;
}

Seen seenIn(const EditorDriver &editor) {
    Seen seen;
    QCryptographicHash level(QCryptographicHash::Sha256);
    level.addData(levelBytes(editor.level()));
    const auto &players = editor.level().charSet->characters;
    // A save leaves out heights that the game makes, and players that do not take part.
    for (const TerrainVertex &vertex : editor.level().mesh->vertices) {
        level.addData(QByteArrayView(reinterpret_cast<const char *>(&vertex.position.y), sizeof(float)));
    }
    for (const auto &player : players) {
        QByteArray all;
        QDataStream out(&all, QIODevice::WriteOnly);
        out << player->name << player->model << player->modelIndex << player->team << player->teamIndex
            << player->weapon << player->waitFor << player->cell << player->placed << player->active;
        level.addData(all);
    }
    seen.level = level.result();
    QDataStream cells(&seen.cells, QIODevice::WriteOnly);
    for (const MapCell &cell : editor.window->mapView->cells->cells) {
        const bool leaving = !cell.vacant && cell.player->active && cell.player->cell != cell.index;
        const auto stands = [&](const auto &player) {
            return !cell.vacant && !leaving && player.get() == cell.player;
        };
        cells << cell.color[0] << cell.color[1] << cell.color[2] << cell.water
              << int(std::find_if(players.begin(), players.end(), stands) - players.begin());
    }
    seen.slot = editor.find<QComboBox>("CharID").currentIndex();
    for (QWidget *const control : editor.find<QTabWidget>("MainTab").findChildren<QWidget *>()) {
        QString text;
        if (const auto *button = qobject_cast<QAbstractButton *>(control)) {
            const QImage icon = button->icon().pixmap(36, 14).toImage();
            text = button->isChecked() ? u'1' : u'0';
            text += icon.isNull() ? QString() : icon.pixelColor(icon.rect().center()).name();
        } else if (const auto *box = qobject_cast<QComboBox *>(control)) {
            text = box->currentText() + u' ' + box->placeholderText();
        } else if (const auto *number = qobject_cast<QSpinBox *>(control)) {
            text = number->text();
        } else if (const auto *label = qobject_cast<QLabel *>(control);
                   label != nullptr && !label->isWindow()) {
            text = label->text();
        } else {
            continue;
        }
        seen.controls.append(control->objectName() + (control->isEnabled() ? u'+' : u'-') + text);
    }
    seen.controls.sort();
    return seen;
}

void press(const EditorDriver &editor, Qt::Key key, Qt::KeyboardModifiers more = {}) {
    editor.activate();
    QTest::keyClick(editor.window.get(), key, Qt::ControlModifier | more);
}

/// Does all a user can do to a level, by lot.
class Walker {
public:
    Walker(const EditorDriver &driven, unsigned seed) : editor(driven), random(seed) {}

    int below(int end) { return int(random() % unsigned(end)); }

    /// Returns what may be one step with the action before it, if that was the same; null for others.
    const char *act() {
        const int lot = below(20);
        if (lot < 6) {
            editor.map().wheel(120 * (1 + below(3)) * (below(3) == 0 ? -1 : 1));
            return "wheel";
        }
        if (lot == 6) {
            key("sunSpeed", anyOf({Qt::Key_Down, Qt::Key_Up}));
            return "sunSpeed";
        }
        if (lot == 7) {
            editor.type("birdsNumber", QString::number(below(16)));
            return "birdsNumber";
        }
        if (lot < 10) {
            select();
        } else if (lot < 12) {
            key("CharID", anyOf({Qt::Key_Down, Qt::Key_Up}));
        } else if (lot < 14) {
            click({"Place", "activeNow", "Place", "activeNow", "SmoothTerrain", "randomStart"});
        } else if (lot < 16) {
            click({"Fog", "water", "randomGeo", "waterWalking", "craters", "bengala", "deathTouch",
                   "DynamicTime", "randomGeo"});
        } else if (lot < 18) {
            key(anyOf({"dayTime", "TerrainTextureType", "SkyTextureType", "waterTextureType",
                       "birdTextureType", "gravity"}),
                anyOf({Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End}));
        } else if (lot == 18) {
            look();
        } else {
            answerADialog();
        }
        return nullptr;
    }

private:
    template <typename Value>
    Value anyOf(std::initializer_list<Value> values) {
        return values.begin()[below(int(values.size()))];
    }

    void click(std::initializer_list<const char *> names) { editor.click(anyOf(names)); }

    void key(const char *control, Qt::Key pressed) {
        QTest::keyClick(&editor.find<QWidget>(control), pressed);
    }

    void select() {
        if (!editor.window->mapView->preview) {
            ViewDriver map = editor.map();
            map.drag(map.cellAt(below(20), below(20)), map.cellAt(below(20), below(20)));
        }
    }

    /// Changes what is no part of the level.
    void look() {
        editor.clickTool(editor.window->mapView->preview ? anyOf({"Preview", "Wired", "centerTrack"})
                                                         : "Preview");
        editor.map().paint();
    }

    void answerADialog() {
        const int kind = below(8);
        if (kind < 4) {
            const QColor color(below(256), below(256), below(256));
            const char *const button = anyOf({"TerrainColor", "SunColor", "WaterColor"});
            EditorDriver::answer<QColorDialog>([&] { editor.click(button); },
                                               [&](QColorDialog &dialog) {
                                                   dialog.setCurrentColor(color);
                                                   dialog.accept();
                                               });
        } else if (kind < 6) {
            const int dimension = below(6) == 0 ? 1 + below(2) : 0;
            const int accuracy = below(6) == 0 ? 1 : 0;
            EditorDriver::answer<InitDialog>([&] { press(editor, Qt::Key_N); },
                                             [&](InitDialog &dialog) {
                                                 dialog.mapDimension->setCurrentIndex(dimension);
                                                 dialog.mapScale->setCurrentIndex(accuracy);
                                                 dialog.accept();
                                             });
        } else {
            const int team = below(4);
            EditorDriver::answer<PlayerDialog>([&] { editor.click("EditChar"); },
                                               [&](PlayerDialog &dialog) {
                                                   dialog.TeamBox->setCurrentIndex(team);
                                                   dialog.accept();
                                               });
        }
    }

    const EditorDriver &editor;
    std::mt19937 random;
};

} // namespace

/// Taking changes of the level back.
class UndoTest : public QObject {
    Q_OBJECT

    static int steps(const EditorDriver &editor) { return editor.window->findChild<QUndoStack *>()->index(); }

    static void compare(const EditorDriver &editor, const Seen &wanted) {
        auto &slot = editor.find<QComboBox>("CharID");
        slot.setCurrentIndex(wanted.slot);
        editor.window->charID_activated(wanted.slot);
        const Seen seen = seenIn(editor);
        QCOMPARE(seen.controls, wanted.controls);
        QVERIFY(seen.level == wanted.level);
        QVERIFY(seen.cells == wanted.cells);
    }

private slots:
    // The directory has no pictures.
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("druvelk.*=false")); }

    void everyStepOfAWalkReturnsBothWays() {
        const QByteArray asked = qgetenv("DRUVELK_WALK_SEED");
        const unsigned seed = asked.isEmpty() ? std::random_device()() : asked.toUInt();
        qInfo("DRUVELK_WALK_SEED=%u walks the same way again", seed);
        const EditorDriver editor([](LevelDocument &level) {
            for (int i = 0; i < 18; ++i) {
                level.charSet->characters.resize(18);
                level.charSet->characters[std::size_t(i)] = std::make_unique<CharacterNode>();
                enlist(level, std::size_t(i), i % 5, 20 * i);
            }
            level.background->sunSpeed = 40;
            level.mesh->build([i = 0]() mutable { return float(i++ % 7) - 0.1F; });
        });
        Walker walker(editor, seed);
        std::vector<Seen> states{seenIn(editor)};
        std::vector<const char *> sources{nullptr};
        for (int i = 0; i < 2000; ++i) {
            const char *const action = walker.act();
            const Seen now = seenIn(editor);
            const auto changed = [&] {
                return now.level != states.back().level || now.cells != states.back().cells;
            };
            const auto step = std::size_t(steps(editor));
            if (changed() && step < states.size() && action != nullptr && action == sources.back()) {
                states.pop_back(); // One step with the action before.
                sources.pop_back();
            }
            if (changed()) {
                states.push_back(now);
                sources.push_back(action);
            }
            QVERIFY2(step == states.size() - 1,
                     qPrintable(QStringLiteral("action %1 %2").arg(i).arg(action)));
            states.back() = now;
        }
        qInfo("%zu steps", states.size() - 1);
        for (std::size_t i = states.size() - 1; i > 0; --i) {
            const QByteArray view = viewOf(*editor.window->mapView);
            press(editor, Qt::Key_Z);
            QCOMPARE(viewOf(*editor.window->mapView), view);
            compare(editor, states[i - 1]);
            if (QTest::currentTestFailed()) {
                qInfo("step %zu of %s", i, sources[i]);
            }
            if (QTest::currentTestFailed()) {
                return;
            }
        }
        for (std::size_t i = 1; i < states.size(); ++i) {
            i % 2 == 0 ? press(editor, Qt::Key_Y) : press(editor, Qt::Key_Z, Qt::ShiftModifier);
            compare(editor, states[i]);
            if (QTest::currentTestFailed()) {
                return;
            }
        }
    }

    void whatFeelsAsOneActionIsOneStep() {
        const EditorDriver editor;
        editor.activate();
        ViewDriver map = editor.map();
        auto &speed = editor.find<QSpinBox>("sunSpeed");
        editor.selectCell(3, 3);
        map.wheel(120);
        map.wheel(240);
        QCOMPARE(steps(editor), 1);
        editor.selectCell(4, 3);
        map.wheel(120);
        QCOMPARE(steps(editor), 2);
        QTest::qWait(2100);
        map.wheel(120);
        QCOMPARE(steps(editor), 3);
        for (int i = 0; i < 6; ++i) {
            QTest::keyClick(&speed, Qt::Key_Down);
        }
        QCOMPARE(steps(editor), 4);
        // A number half typed is a text, and its own undo comes first.
        speed.selectAll();
        QTest::keyClick(&speed, Qt::Key_1);
        QCOMPARE(speed.cleanText(), QStringLiteral("1"));
        QTest::keyClick(&speed, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(speed.cleanText(), QStringLiteral("9"));
        QCOMPARE(editor.environment().sunSpeed, 9);
        QTest::keyClick(&speed, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.environment().sunSpeed, 15);
        // What was taken back ends there: the next notch is a step of its own.
        press(editor, Qt::Key_Z);
        QCOMPARE(map.height(12, 16), 0.6666667F);
        map.wheel(120);
        QCOMPARE(steps(editor), 3);
        // There and back is no step.
        QTest::keyClick(&speed, Qt::Key_Down);
        QTest::keyClick(&speed, Qt::Key_Up);
        QCOMPARE(steps(editor), 3);
        EditorDriver::writeLevel(QStringLiteral("levels/a.xml"), [](LevelDocument &) {});
        QVERIFY(editor.answerFile("fileOpenAction", QStringLiteral("a.xml")));
        const LevelDocument *const opened = &editor.level();
        press(editor, Qt::Key_Z);
        QCOMPARE(map.height(12, 12), 0.0F);
        QCOMPARE(&editor.level(), opened);
    }

    void thePreviewShowsIt() {
        const EditorDriver editor;
        editor.activate();
        ViewDriver map = editor.map();
        QDir().mkpath(QStringLiteral("data/textures"));
        for (const auto &[name, color] : {std::pair("grass1", 0xff206020U), {"snow1", 0xffe0e0f0U}}) {
            QImage picture(8, 8, QImage::Format_RGB32);
            picture.fill(color);
            QVERIFY(picture.save(QStringLiteral("data/textures/%1.jpg").arg(QLatin1String(name))));
        }
        map.drag(map.cellAt(4, 4), map.cellAt(15, 15));
        map.wheel(-360);
        editor.selectCell(10, 10);
        map.wheel(960);
        editor.clickTool("Preview");
        const auto newMap = [&] {
            QVERIFY(EditorDriver::answer<InitDialog>([&] { press(editor, Qt::Key_N); },
                                                     [](InitDialog &dialog) {
                                                         dialog.mapDimension->setCurrentIndex(2);
                                                         dialog.accept();
                                                     }));
        };
        const std::vector<std::pair<const char *, std::function<void()>>> actions{
            {"texture", [&] { editor.pick("TerrainTextureType", QStringLiteral("snow1")); }},
            {"fog", [&] { editor.click("Fog"); }},
            {"no water", [&] { editor.click("water"); }},
            {"day time", [&] { editor.pick("dayTime", QStringLiteral("night")); }},
            {"erosion", [&] { editor.click("SmoothTerrain"); }},
            {"new map", newMap}};
        // A new map moves the camera, and undo leaves it there.
        const auto picture = [&, center = editor.window->mapView->center] {
            editor.window->mapView->center = center;
            return map.picture();
        };
        std::vector<QImage> pictures{picture()};
        for (const auto &[name, act] : actions) {
            act();
            pictures.push_back(picture());
            QVERIFY2(pictures.back() != pictures[pictures.size() - 2], name);
        }
        for (std::size_t i = actions.size(); i-- > 0;) {
            press(editor, Qt::Key_Z);
            QVERIFY2(picture() == pictures[i], actions[i].first);
        }
        for (std::size_t i = 0; i < actions.size(); ++i) {
            press(editor, Qt::Key_Y);
            QVERIFY2(picture() == pictures[i + 1], actions[i].first);
        }
    }

    void aHundredStepsOfALargeMapTakeLittleMemory() {
        const EditorDriver editor([](LevelDocument &level) {
            level.mesh->setSize(80, 4);
            level.mesh->build();
        });
        ViewDriver map = editor.map();
        const auto inUse = [] {
            const auto info = mallinfo2();
            return info.uordblks + info.hblkhd;
        };
        map.wheel(120);
        const std::size_t before = inUse();
        for (std::size_t i = 1; i <= 100; ++i) {
            editor.window->mapView->cells->clearSelection();
            editor.window->mapView->cells->cells[i].selected = true;
            map.wheel(120);
        }
        QCOMPARE(steps(editor), 101);
        QVERIFY2(inUse() < before + 50'000'000, qPrintable(QString::number(inUse() - before)));
        qInfo("100 steps take %zu bytes", inUse() - before);
    }
};

DRUVELK_TEST_MAIN(UndoTest)
#include "UndoTest.moc"
