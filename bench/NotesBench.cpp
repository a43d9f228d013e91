// What a person waits for who types into notes: from the key to the painted letter, with everything that
// follows from it, and with the saves that begin on their own.

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextDocument>

#include "Vantry/interface/design/ParagraphEditor.h"
#include "bench/OpenWindow.h"

namespace vantry::bench {
namespace {

/// How the text is made that is typed into.
struct Notes {
    const char* name;
    int paragraphs;
    const char* sentence;  ///< what a paragraph repeats
    int bytes;             ///< of all paragraphs together; 0 for the notes that the take has
};

constexpr int megabyte = 1000 * 1000;
constexpr const char* english = "Focus drops half a beat on the turn, first half usable. ";
constexpr const char* chinese = "焦点在转身时跟丢半拍，推到 1.2 m 后恢复。";

std::string textOf(const Notes& notes) {
    const auto length = static_cast<std::size_t>(notes.bytes / notes.paragraphs);
    const std::string sentence = notes.sentence;
    std::string paragraph;
    while (paragraph.size() + sentence.size() <= std::max(length, sentence.size()))
        paragraph += sentence;
    std::string text;
    for (int count = 0; count < notes.paragraphs; ++count)
        text += paragraph + "\n";
    return text;
}

/// A window with the notes of a take on screen, the caret in their middle.
class Writing {
public:
    Writing(const Workload& work, const Notes& notes, OpenWindow::Saving saving)
        : open(work, saving) {
        const Places places(open.store->library());
        if (notes.bytes > 0)
            open.store->updateTake(places.projectID, places.actID, places.shotID, places.takeID,
                                   [&](VantryTake& take) { take.notes = textOf(notes); });
        open.store->flush();
        open.go(places.take());
        open.window->activateWindow();
        settle();
        // The notes are the largest of the editors.
        for (auto* candidate : open.window->findChildren<ParagraphEditor*>())
            if (candidate->isVisible() && (editor == nullptr || candidate->height() > editor->height()))
                editor = candidate;
        if (editor == nullptr)
            throw std::runtime_error("the page has no notes");
        editor->setFocus();
        QTextCursor caret = editor->textCursor();
        caret.setPosition(static_cast<int>(editor->document()->characterCount() / 2));
        editor->setTextCursor(caret);
        settle();
    }

    /// Types a letter and waits until it is painted: milliseconds.
    [[nodiscard]] double type() const {
        QElapsedTimer timer;
        timer.start();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
        QApplication::sendEvent(editor, &press);
        settle();
        const double took = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
        QApplication::sendEvent(editor, &release);
        return took;
    }

    OpenWindow open;
    ParagraphEditor* editor = nullptr;
};

void report(benchmark::State& state, std::vector<double> samples) {
    std::sort(samples.begin(), samples.end());
    const auto at = [&](double part) {
        return samples[static_cast<std::size_t>(part * static_cast<double>(samples.size() - 1))];
    };
    constexpr double worst = 0.99;
    state.SetIterationTime(at(0.5) / 1000);
    state.counters["median_ms"] = at(0.5);
    state.counters["p99_ms"] = at(worst);
    state.counters["worst_ms"] = samples.back();
    state.counters["keys"] = static_cast<double>(samples.size());
}

/// Letter after letter, faster than anything is saved.
void typeOn(benchmark::State& state, const Workload& work, const Notes& notes) {
    const int keys = notes.paragraphs == 1 && notes.bytes > 0 ? 5 : 200;
    Writing writing(work, notes, OpenWindow::Saving::never);
    for (auto _ : state) {
        std::vector<double> samples;
        samples.reserve(static_cast<std::size_t>(keys));
        for (int key = 0; key < keys; ++key)
            samples.push_back(writing.type());
        report(state, std::move(samples));
    }
}

/// A letter after each save, as of somebody who thinks between words: what was saved last is another library
/// then, and nothing of it is shared with what was typed.
void typeBetweenSaves(benchmark::State& state, const Workload& work, const Notes& notes) {
    const int keys = notes.paragraphs == 1 && notes.bytes > 0 ? 3 : 12;
    Writing writing(work, notes, OpenWindow::Saving::asUsual);
    for (auto _ : state) {
        std::vector<double> samples;
        samples.reserve(static_cast<std::size_t>(keys));
        for (int key = 0; key < keys; ++key) {
            samples.push_back(writing.type());
            while (writing.open.store->hasUnsavedChanges())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        report(state, std::move(samples));
    }
}

}  // namespace

void registerNotes(const Workload& work) {
    static const Notes all[] = {
        {"as-they-are", 1, "", 0},
        {"20000-paragraphs", 20000, english, megabyte},
        {"20000-paragraphs-chinese", 20000, chinese, megabyte},
        {"one-paragraph", 1, english, megabyte},
    };
    for (const Notes& notes : all) {
        const auto add = [&](const std::string& name, auto function) {
            benchmark::RegisterBenchmark(
                (name + notes.name).c_str(),
                [&work, &notes, function](benchmark::State& state) { function(state, work, notes); })
                ->Unit(benchmark::kMillisecond)
                ->UseManualTime()
                ->Iterations(1);
        };
        add("notes/key/", typeOn);
        add("notes/key-between-saves/", typeBetweenSaves);
    }
}

}  // namespace vantry::bench
