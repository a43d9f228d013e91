#include "Vantry/interface/navigation/LibraryTreeModel.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Glyph.h"
#include "tests/support/RandomEdits.h"
#include "tests/support/RandomRecords.h"

namespace vantry::test {
namespace {

using Model = LibraryTreeModel;

/// One line for each row, indented by level.
QStringList linesOf(const Model& model, const QModelIndex& parent = {}, int level = 0) {
    QStringList lines;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        lines.append(QString(qsizetype{2} * level, QLatin1Char(' ')) + index.data().toString() +
                     QStringLiteral(" | ") + index.data(Model::detailRole).toString());
        lines += linesOf(model, index, level + 1);
    }
    return lines;
}

/// Each row and the record that it stands for.
using Kept = std::vector<std::pair<QPersistentModelIndex, Identifier>>;
void keep(const Model& model, Kept& kept, const QModelIndex& parent = {}) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        kept.emplace_back(index, Model::recordOf(index));
        keep(model, kept, index);
    }
}

/// A model that is watched by Qt's own tester for as long as it lives.
class LibraryTreeModelTest : public testing::Test {
protected:
    void refresh() { model.refresh(library, english); }
    [[nodiscard]] QStringList rows() const { return linesOf(model); }
    /// Rows exist once somebody has looked at them.
    void lookAtAllRows() const { static_cast<void>(rows()); }
    [[nodiscard]] Shot& shotAt(std::size_t act, std::size_t shot) {
        return library.projects[0].edit().acts[act].edit().shots[shot].edit();
    }
    void makeLibrary() {
        Project project = Project::make("Tom & Jerry <b>");
        project.director = "Mei";
        for (const char* title : {"One", "Two"}) {
            Act act = Act::make(title);
            for (const char* code : {"1", "2", "3"}) {
                Shot shot = Shot::make(code, "Window", {});
                shot.newTake();
                act.shots.emplace_back(std::move(shot));
            }
            project.acts.emplace_back(std::move(act));
        }
        library.projects.emplace_back(std::move(project));
    }

    Model model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    Library library;
    bool english = true;
};

TEST_F(LibraryTreeModelTest, AnEmptyLibraryHasNoRows) {
    refresh();
    EXPECT_EQ(model.rowCount({}), 0);
}

TEST_F(LibraryTreeModelTest, RowsSayWhatTheyStandFor) {
    makeLibrary();
    library.projects[0].edit().conflictKey = Text("key");
    library.projects[0].edit().acts.pop_back();
    library.projects[0].edit().acts[0].edit().shots.resize(2);
    shotAt(0, 0).takes[0].edit().result = TakeResult::good;
    shotAt(0, 0).takes[0].edit().stars = 4;
    shotAt(0, 1).soundMode = SoundMode::roomTone;
    shotAt(0, 1).cancelled = true;
    shotAt(0, 1).takes[0].edit().result = TakeResult::ng;
    refresh();
    EXPECT_EQ(rows(),
              (QStringList{"Tom & Jerry <b> | Director: Mei · retained version",
                           "  One | 1 shots · 1 done / 0 remaining", "    1 Window | 1 Take · 4★ · ✓",
                           "      Take 1 | Good · 4★", "      New take | ", "    2 Window | 1 Take · 0★",
                           "      Take 1 | NG · 0★", "      New take | "}));
    english = false;
    refresh();
    EXPECT_EQ(rows(),
              (QStringList{"Tom & Jerry <b> | 导演：Mei · 保留版本", "  One | 1 镜 · 1 完成 / 0 未完",
                           "    1 Window | 1 Take · 4★ · ✓", "      Take 1 | Good · 4★", "      新 Take | ",
                           "    2 Window | 1 Take · 0★", "      Take 1 | NG · 0★", "      新 Take | "}));
    const QModelIndex act = model.index(0, 0, model.index(0, 0, {}));
    EXPECT_EQ(model.index(0, 0, act).data(Model::glyphRole).toInt(), static_cast<int>(Glyph::camera));
    const QModelIndex roomTone = model.index(1, 0, act);
    EXPECT_EQ(roomTone.data(Model::glyphRole).toInt(), static_cast<int>(Glyph::waveform));
    EXPECT_FALSE(model.index(1, 0, roomTone).flags().testFlag(Qt::ItemIsEnabled))
        << "a cancelled shot takes no takes";
}

TEST_F(LibraryTreeModelTest, ATakeWithoutAVerdictShowsADash) {
    makeLibrary();
    refresh();
    EXPECT_TRUE(rows().contains(QStringLiteral("      Take 1 | — · 0★")));
}

TEST_F(LibraryTreeModelTest, RowsSpeakTheirTitleAndDetail) {
    makeLibrary();
    refresh();
    const QModelIndex project = model.index(0, 0, {});
    EXPECT_EQ(project.data(Qt::AccessibleTextRole), project.data());
    EXPECT_EQ(project.data(Qt::AccessibleDescriptionRole), project.data(Model::detailRole));
    EXPECT_TRUE(project.data(Qt::ToolTipRole)
                    .toString()
                    .startsWith(QStringLiteral("<span>Tom &amp; Jerry &lt;b&gt;")));
}

TEST_F(LibraryTreeModelTest, EachRowLeadsToItsPlaceAndBack) {
    makeLibrary();
    refresh();
    const Project& project = *library.projects[0];
    const Act& act = *project.acts[1];
    const Shot& shot = *act.shots[2];
    for (const Route& route : {Route::project(project.id), Route::act(project.id, act.id),
                               Route::shot(project.id, act.id, shot.id),
                               Route::take(project.id, act.id, shot.id, shot.takes[0]->id)}) {
        const QModelIndex index = model.indexOf(route);
        ASSERT_TRUE(index.isValid());
        EXPECT_EQ(Model::routeOf(index), route);
    }
    EXPECT_FALSE(model.indexOf(Route::act(project.id, Identifier::random())).isValid());
    const QModelIndex newTake = model.index(1, 0, model.indexOf(Route::shot(project.id, act.id, shot.id)));
    EXPECT_EQ(Model::kindOf(newTake), Model::Kind::newTake);
    EXPECT_EQ(Model::routeOf(newTake), Route::shot(project.id, act.id, shot.id));
}

TEST_F(LibraryTreeModelTest, OnlyWhatDiffersIsAnnounced) {
    makeLibrary();
    refresh();
    lookAtAllRows();
    QSignalSpy changes(&model, &Model::dataChanged);
    refresh();
    EXPECT_EQ(changes.count(), 0);
    shotAt(0, 1).takes[0].edit().notes = "seen in no row";
    refresh();
    EXPECT_EQ(changes.count(), 0);
    shotAt(0, 1).title = "Door";
    refresh();
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().data().toString(), QStringLiteral("2 Door"));
}

TEST_F(LibraryTreeModelTest, AShotThatMovesIsMovedOnce) {
    makeLibrary();
    refresh();
    lookAtAllRows();
    QSignalSpy moves(&model, &Model::rowsMoved);
    QSignalSpy insertions(&model, &Model::rowsInserted);
    const auto rotate = [this](std::ptrdiff_t places) {
        auto& shots = library.projects[0].edit().acts[0].edit().shots;
        std::rotate(shots.begin(), shots.begin() + places, shots.end());
        refresh();
    };
    rotate(1);
    EXPECT_EQ(moves.count(), 1);
    rotate(2);
    EXPECT_EQ(moves.count(), 2);
    EXPECT_EQ(insertions.count(), 0);
}

TEST_F(LibraryTreeModelTest, ARecordThatStaysKeepsItsRowThroughEverything) {
    support::RandomRecords records(7);
    std::mt19937 generator(11);
    library = records.validLibrary(4);
    refresh();
    QSignalSpy resets(&model, &Model::modelReset);
    const auto shuffle = [&](auto& list) { std::shuffle(list.begin(), list.end(), generator); };
    for (int round = 0; round < 400; ++round) {
        Kept kept;
        if (round % 2 == 0)
            keep(model, kept);
        for (int edits = 1 + static_cast<int>(generator() % 4); edits > 0; --edits) {
            switch (generator() % 5) {
            case 0:
                shuffle(library.projects);
                break;
            case 1:
                for (auto& project : library.projects)
                    shuffle(project.edit().acts);
                break;
            case 2:
                library.projects.insert(
                    library.projects.begin() +
                        static_cast<std::ptrdiff_t>(generator() % (library.projects.size() + 1)),
                    records.validProject());
                break;
            case 3:
                if (library.projects.size() > 2)
                    library.projects.erase(
                        library.projects.begin() +
                        static_cast<std::ptrdiff_t>(generator() % library.projects.size()));
                break;
            default:
                support::editValidly(library, records);
            }
        }
        if (generator() % 20 == 0)
            english = !english;
        refresh();
        Model fresh;
        fresh.refresh(library, english);
        ASSERT_EQ(rows(), linesOf(fresh)) << "round " << round;
        for (const auto& [index, id] : kept) {
            const Identifier stands = index.isValid() ? Model::recordOf(index) : id;
            ASSERT_EQ(stands, id) << "round " << round;
        }
    }
    EXPECT_EQ(resets.count(), 0);
}

}  // namespace
}  // namespace vantry::test
