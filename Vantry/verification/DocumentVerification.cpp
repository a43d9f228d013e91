#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include <QBuffer>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QScopeGuard>

#include "Vantry/app/QtText.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/documents/CallSheetPDF.h"
#include "Vantry/documents/PDFExport.h"
#include "Vantry/schedule/rules/CalendarAgendaItem.h"
#include "Vantry/verification/Smoke.h"
#include "VantryCore/persistence/AtomicFile.h"
#include "VantryCore/records/ClockReading.h"

namespace vantry {
namespace {

constexpr const char* endOfReport = "END_OF_REPORT";

/// The text without blanks and line ends: where a line is broken is the page's business.
QString withoutBlanks(const QString& text) {
    QString kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), [](QChar c) { return !c.isSpace(); });
    return kept.normalized(QString::NormalizationForm_C);
}

/// Keeps a document beside the others of the run and reads it as any viewer would.
class PrintedDocument {
public:
    PrintedDocument(const std::filesystem::path& folder, const std::string& name, const QByteArray& pdf) {
        AtomicFile::write(folder / (name + ".pdf"),
                          std::string_view(pdf.constData(), static_cast<std::size_t>(pdf.size())));
        QByteArray bytes = pdf;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QPdfDocument document;
        document.load(&buffer);
        Smoke::demand(document.status() == QPdfDocument::Status::Ready && document.pageCount() > 0,
                      "PDF extraction: " + name);
        pages = document.pageCount();
        for (int page = 0; page < pages; ++page)
            text += document.getAllText(page).text();
        text = withoutBlanks(text);
    }

    [[nodiscard]] bool has(const QString& part) const { return text.contains(withoutBlanks(part)); }
    [[nodiscard]] bool has(const Text& part) const { return has(toQString(part)); }
    [[nodiscard]] int pageCount() const noexcept { return pages; }

private:
    QString text;
    int pages = 0;
};

/// A note of several pages.
Text longNote(const char* sentence) {
    std::string note;
    for (int i = 0; i < 200; ++i)
        note += sentence + std::to_string(i) + "\n";
    return Text(note + endOfReport);
}

/// Three shots on the day of the first call sheet and around it.
struct ShootDay {
    Identifier onDay, nextDay, cancelled;
};

void setNotes(VantryStore& store, const FixturePlace& made, const Text& notes) {
    store.updateTake(made.project, made.act, made.shot, made.take,
                     [&](VantryTake& take) { take.notes = notes; });
}

ShootDay scheduleShots(VantryStore& store, const FixturePlace& made) {
    const auto project = store.project(made.project);
    const CallSheet& sheet = project->callSheets().front();
    const auto day = sheet.calendar().day(sheet.date);
    Smoke::demand(day.has_value(), "Unable to construct fixture date");
    const auto add = [&](const char* title, Moment start, bool cancelled) {
        const Identifier id = store.addShot(made.project, made.act);
        store.updateShot(made.project, made.act, id, [&](Shot& shot) {
            shot.title = title;
            shot.scheduledAt = start;
            shot.cancelled = cancelled;
        });
        return id;
    };
    const Moment noon{day->start.seconds + 12 * 3600.0};
    return {add("ON_THE_DAY", noon, false), add("ON_THE_NEXT_DAY", Moment{day->end.seconds + 3600}, false),
            add("CANCELLED_ON_THE_DAY", noon, true)};
}

void verifyReport(VantryStore& store, const FixturePlace& made, const std::filesystem::path& folder) {
    for (const bool english : {false, true}) {
        const std::string language = english ? "en" : "zh";
        store.setLanguage(Text(language));
        const Text kept = store.take(made.project, made.act, made.shot, made.take)->notes;
        setNotes(store, made, longNote(english ? "A long note from the set, line " : "现场的长篇笔记，第 "));
        const auto project = store.project(made.project);
        const PrintedDocument report(folder, "Report-" + language, PDFExport::render(*project, true, store));
        const PrintedDocument plan(folder, "Storyboard-" + language,
                                   PDFExport::render(*project, false, store));
        Smoke::demand(report.pageCount() > 4 && report.has(QString::fromLatin1(endOfReport)),
                      "Long PDF lost text");
        Smoke::demand(report.has(QStringLiteral("A001_C001.mov")) &&
                          report.has(QStringLiteral("S01_T01.wav")),
                      "PDF missing media");
        setNotes(store, made, kept);
        const PrintedDocument brief(folder, "Notes-" + language,
                                    PDFExport::render(*store.project(made.project), true, store));
        Smoke::demand(brief.has(kept) && !plan.has(QString::fromLatin1(endOfReport)), "PDF missing notes");
        Smoke::demand((english || report.has(QStringLiteral("拍摄报告 · 给导演"))) &&
                          report.has(project->title) && plan.has(QStringLiteral("听见广播，回头。停两秒。")),
                      "Chinese PDF text");
        for (const auto& member : project->crew()) {
            if (isBlank(member.name.utf8())) {
                Smoke::demand(!report.has(member.title(english)), "PDF missing crew");
                continue;
            }
            Smoke::demand(report.has(member.title(english)), "PDF crew localization");
            Smoke::demand(report.has(member.name) && plan.has(member.name), "PDF missing crew");
        }
    }
}

void verifyCallSheet(VantryStore& store, const FixturePlace& made, const std::filesystem::path& folder) {
    const auto project = store.project(made.project);
    const CallSheet& sheet = project->callSheets().front();
    const auto agenda =
        CalendarAgendaItem::daily({}, callSheetLocations(store.library()), sheet.date, sheet.calendar());
    Smoke::demand(std::any_of(agenda.begin(), agenda.end(),
                              [&](const CalendarAgendaItem& item) { return item.id() == sheet.id; }),
                  "Call sheet-only day hidden");
    const ShootDay shots = scheduleShots(store, made);
    store.setLanguage("en");
    store.updateProject(made.project, [current = store.project(made.project)](Project& record) {
        auto sheets = record.callSheets();
        sheets.front().syncProjectPeople(*current, true);
        record.setCallSheets(std::move(sheets));
    });
    const auto scheduled = store.project(made.project);
    const CallSheet& printed = scheduled->callSheets().front();
    const PrintedDocument notice(folder, "CallSheet-en", CallSheetPDF::render(*scheduled, printed, store));
    bool complete = notice.has(QStringLiteral("Director of photography")) && notice.has(printed["address"]) &&
                    notice.has(printed["generalCall"]) && notice.has(QStringLiteral("ON_THE_DAY"));
    for (const auto& person : printed.people)
        complete =
            complete && notice.has(person.role) && notice.has(person.name) && notice.has(person.callTime);
    Smoke::demand(complete, "Call sheet missing content");
    const auto list = CallSheetPDF::scheduledShots(*scheduled, printed);
    const auto lists = [&](const Identifier& id) {
        return std::any_of(list.begin(), list.end(), [&](const auto& one) { return one.shot->id == id; });
    };
    Smoke::demand(lists(shots.onDay), "Call sheet missing content");
    Smoke::demand(!lists(shots.nextDay) && !notice.has(QStringLiteral("ON_THE_NEXT_DAY")),
                  "Call sheet included wrong day");
    Smoke::demand(!lists(shots.cancelled) && !notice.has(QStringLiteral("CANCELLED_ON_THE_DAY")),
                  "Call sheet included cancelled shot");
}

}  // namespace

void DocumentVerification::run(VantryStore& store, const FixturePlace& made) {
    const Text language = store.language();
    const auto restore = qScopeGuard([&] { store.setLanguage(language); });
    const auto folder = store.root() / "Documents";
    std::filesystem::create_directories(folder);
    verifyReport(store, made, folder);
    verifyCallSheet(store, made, folder);
    store.flush();
}

}  // namespace vantry
