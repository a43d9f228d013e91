#pragma once

#include <cmath>
#include <memory>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QTest>

#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Palette.h"
#include "tests/app/ImageFiles.h"
#include "tests/support/Files.h"

namespace vantry::test {

/// A window and a store with one shot, for what shows and draws its storyboard.
class StoryboardTest : public testing::Test {
protected:
    void SetUp() override {
        before = QApplication::palette();
        QApplication::setPalette(Palette::light().controls());
        store = std::make_unique<VantryStore>(folder / "Data");
        store->setLanguage("en");
        project = store->addProject("候车室", "林若水");
        act = store->addAct(project);
        shot = store->addShot(project, act);
        change([](Shot& record) {
            record.code = "20B";
            record.title = "Tom & Jerry <b>x</b>";
        });
        window.resize(1380, 900);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    void TearDown() override { QApplication::setPalette(before); }

    static void settle() {
        for (int turn = 0; turn < 8; ++turn) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    void change(const VantryStore::Change<Shot>& mutate) { store->updateShot(project, act, shot, mutate); }
    void removeShot() {
        store->updateAct(project, act, [](Act& record) { record.shots.clear(); });
        settle();
    }
    [[nodiscard]] Shot record() const { return *store->shot(project, act, shot); }
    void setStrokes(std::vector<Stroke> strokes) {
        change([&](Shot& held) { held.strokes = std::move(strokes); });
    }
    [[nodiscard]] std::filesystem::path file(const std::string& name, const std::string& bytes) const {
        support::putContent(folder / name, bytes);
        return folder / name;
    }
    void importImage(const QColor& colour, int width, int height) {
        const auto path = file("image.png", pngOf(colour, width, height));
        store->importImageFile(project, act, shot, path.string());
        ASSERT_TRUE(record().imageKey);
    }
    [[nodiscard]] std::filesystem::path imageFile() const {
        return store->root() / "Media" / record().imageKey->utf8();
    }

    [[nodiscard]] static QString nameOf(QObject& object) {
        return QAccessible::queryAccessibleInterface(&object)->text(QAccessible::Name);
    }
    /// The button of that name.
    [[nodiscard]] static QAbstractButton& button(QWidget& within, const QString& name) {
        for (auto* candidate : within.findChildren<QAbstractButton*>())
            if (nameOf(*candidate) == name)
                return *candidate;
        throw std::runtime_error("no button is called " + name.toStdString());
    }
    [[nodiscard]] static bool shows(QWidget& within, const QString& text) {
        for (const auto* label : within.findChildren<QLabel*>())
            if (label->text() == text && label->isVisible())
                return true;
        return false;
    }
    [[nodiscard]] static bool nearly(const QColor& one, const QColor& other) {
        return std::abs(one.red() - other.red()) <= 2 && std::abs(one.green() - other.green()) <= 2 &&
               std::abs(one.blue() - other.blue()) <= 2;
    }
    /// Where in a picture there are points of that colour.
    [[nodiscard]] static QRect inkIn(const QImage& picture, const QColor& colour) {
        QRect found;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (nearly(picture.pixelColor(x, y), colour))
                    found |= QRect(x, y, 1, 1);
        return found;
    }

    support::TemporaryFolder folder;
    QPalette before;
    std::unique_ptr<VantryStore> store;
    Identifier project, act, shot;
    QWidget window;
};

}  // namespace vantry::test
