#include "Vantry/interface/shots/StoryboardPreview.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>

#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/shots/StoryboardViewer.h"
#include "tests/interface/shots/StoryboardFixture.h"

namespace vantry::test {
namespace {

class StoryboardPreviewTest : public StoryboardTest {
protected:
    void SetUp() override {
        StoryboardTest::SetUp();
        preview = new StoryboardPreview(*store, &window);
        preview->setGeometry(20, 20, 324, 182);
        preview->fill(record(), true);
        preview->show();
    }
    [[nodiscard]] StoryboardViewer* viewer() const { return window.findChild<StoryboardViewer*>(); }

    /// What the frame answers to something that is dragged over it and dropped.
    struct Answers {
        bool entered = false;
        bool dropped = false;
        QStringList paths;
        Qt::DropAction action = Qt::IgnoreAction;
    };
    Answers drop(const QList<QUrl>& urls, const QString& text = {},
                 Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction) {
        QMimeData data;
        if (!urls.isEmpty())
            data.setUrls(urls);
        if (!text.isEmpty())
            data.setText(text);
        Answers answers;
        QSignalSpy spy(preview, &StoryboardPreview::dropped);
        QDragEnterEvent enter(QPoint(50, 50), possible, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(preview, &enter);
        answers.entered = enter.isAccepted();
        QDropEvent event(QPointF(50, 50), possible, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(preview, &event);
        answers.dropped = event.isAccepted();
        answers.action = event.dropAction();
        for (const auto& arguments : spy)
            answers.paths.append(arguments.front().toString());
        return answers;
    }
    [[nodiscard]] static QUrl url(const std::filesystem::path& path) {
        return QUrl::fromLocalFile(QString::fromStdString(path.string()));
    }

    StoryboardPreview* preview = nullptr;
};

TEST_F(StoryboardPreviewTest, IsAButtonNamedAfterItsShotInBothLanguages) {
    const auto* spoken = QAccessible::queryAccessibleInterface(preview);
    EXPECT_EQ(spoken->role(), QAccessible::Button);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Enlarge storyboard · 20B"));
    EXPECT_EQ(spoken->text(QAccessible::Description), QStringLiteral("Click to enlarge"));
    EXPECT_EQ(preview->toolTip(), asHelp(QStringLiteral("Click to enlarge")));
    EXPECT_EQ(spoken->childCount(), 0);
    change([](Shot& held) { held.code = "A & B"; });
    preview->fill(record(), false);
    EXPECT_EQ(nameOf(*preview), QStringLiteral("放大分镜图片 · A & B"));
    EXPECT_EQ(preview->toolTip(), asHelp(QStringLiteral("点击放大查看")));
}

TEST_F(StoryboardPreviewTest, AClickOpensTheViewerOverTheWindow) {
    EXPECT_EQ(viewer(), nullptr);
    QTest::mouseClick(preview, Qt::LeftButton);
    settle();
    ASSERT_NE(viewer(), nullptr);
    EXPECT_TRUE(viewer()->isVisible());
    EXPECT_TRUE(viewer()->isModal());
    QTest::keyClick(viewer(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(viewer(), nullptr) << "each opening is a new one";
}

TEST_F(StoryboardPreviewTest, SpaceAndReturnOpenItAndAHeldReturnOnce) {
    preview->setFocus(Qt::TabFocusReason);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyClick(preview, key);
        settle();
        ASSERT_NE(viewer(), nullptr);
        QTest::simulateEvent(QApplication::focusWidget(), true, Qt::Key_Return, Qt::NoModifier, {}, true);
        settle();
        ASSERT_NE(viewer(), nullptr) << "the Return that opened it does not close it";
        viewer()->reject();
        settle();
    }
}

TEST_F(StoryboardPreviewTest, OutsideOfTheFrameThereIsNothingToPress) {
    preview->resize(324, 400);
    QTest::mouseClick(preview, Qt::LeftButton, Qt::NoModifier, QPoint(160, 10));
    settle();
    EXPECT_EQ(viewer(), nullptr);
}

TEST_F(StoryboardPreviewTest, OutlivesNothingItHasOpened) {
    QTest::mouseClick(preview, Qt::LeftButton);
    settle();
    delete preview;
    settle();
    ASSERT_NE(viewer(), nullptr);
    QTest::keyClick(viewer(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(viewer()->zoom(), 1.5);
}

TEST_F(StoryboardPreviewTest, ShowsTheMarkAtItsCorner) {
    importImage(Qt::blue, 16, 9);
    preview->fill(record(), true);
    const QImage shown = preview->grab().toImage();
    const QRect mark = inkIn(shown, Palette::light().card);
    EXPECT_EQ(mark, QRect(324 - 30, 182 - 30, 24, 24));
}

TEST_F(StoryboardPreviewTest, OfACancelledShotItIsFaded) {
    importImage(Qt::blue, 16, 9);
    preview->fill(record(), true);
    EXPECT_TRUE(nearly(preview->grab().toImage().pixelColor(100, 90), Qt::blue));
    change([](Shot& held) { held.cancelled = true; });
    preview->fill(record(), true);
    EXPECT_FALSE(nearly(preview->grab().toImage().pixelColor(100, 90), Qt::blue));
}

TEST_F(StoryboardPreviewTest, TakesOneFileOfThisMachine) {
    preview->setAcceptDrops(true);
    const auto path = file("分镜 一.png", "anything");
    const Answers answers = drop({url(path)});
    EXPECT_TRUE(answers.entered);
    EXPECT_TRUE(answers.dropped);
    EXPECT_EQ(answers.action, Qt::CopyAction);
    EXPECT_EQ(answers.paths, QStringList(QString::fromStdString(path.string())));
}

TEST_F(StoryboardPreviewTest, RefusesEverythingElse) {
    preview->setAcceptDrops(true);
    const auto path = file("a.png", "anything");
    std::filesystem::create_directory(folder / "folder");
    const std::vector<Answers> all{drop({url(path), url(path)}),
                                   drop({}, QStringLiteral("a text")),
                                   drop({QUrl(QStringLiteral("https://example.com/a.png"))}),
                                   drop({url(folder / "folder")}),
                                   drop({url(folder / "gone.png")}),
                                   drop({url(path)}, {}, Qt::LinkAction)};
    for (const Answers& answers : all) {
        EXPECT_FALSE(answers.entered);
        EXPECT_FALSE(answers.dropped);
        EXPECT_TRUE(answers.paths.isEmpty());
    }
}

TEST_F(StoryboardPreviewTest, WhatWasDroppedIsImportedByTheRulesOfTheStore) {
    preview->setAcceptDrops(true);
    QObject::connect(preview, &StoryboardPreview::dropped, &window, [this](const QString& path) {
        store->importImageFile(project, act, shot, path.toStdString());
    });
    setStrokes({Stroke::make({{0.5, 0.5}})});
    drop({url(file("分镜.png", pngOf(Qt::green)))});
    EXPECT_TRUE(record().imageKey);
    EXPECT_EQ(record().strokes.size(), 1U);
    drop({url(file("text.png", "a text"))});
    EXPECT_EQ(store->error(), Text("备份格式或校验不正确 / Invalid backup or checksum"));
    store->undo();
    EXPECT_FALSE(record().imageKey) << "it was one structural change";
    EXPECT_EQ(record().strokes.size(), 1U);
}

TEST_F(StoryboardPreviewTest, ShowsThatItWouldTakeWhatIsDragged) {
    preview->setAcceptDrops(true);
    const QImage before = preview->grab().toImage();
    QMimeData data;
    data.setUrls({url(file("a.png", "x"))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(preview, &enter);
    EXPECT_NE(preview->grab().toImage(), before);
    QDragLeaveEvent leave;
    QApplication::sendEvent(preview, &leave);
    EXPECT_EQ(preview->grab().toImage(), before);
}

}  // namespace
}  // namespace vantry::test
