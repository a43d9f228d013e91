#include "Vantry/documents/CallSheetPDF.h"

#include <algorithm>
#include <array>
#include <utility>

#include "Vantry/app/VantryStore.h"
#include "Vantry/documents/DocumentName.h"
#include "Vantry/documents/PDFWriter.h"
#include "Vantry/schedule/rules/ShootSchedule.h"
#include "VantryCore/records/CallSheetFields.h"
#include "VantryCore/records/ClockReading.h"

namespace vantry {
namespace {

constexpr std::array<std::string_view, 3> alwaysShown{"generalCall", "location", "address"};

class Writing {
public:
    Writing(const Project& written, const CallSheet& of, bool inEnglish, DocumentFlow& to)
        : project(written)
        , sheet(of)
        , english(inEnglish)
        , flow(to) {}

    void run() {
        flow.text(project.title.utf8(), 24, true);
        flow.text(pick("拍摄通告单 · Call Sheet", "Call Sheet"), 18, true);
        flow.text(CallSheetPDF::dateText(sheet) + " · " + sheet.timeZoneID.utf8(), 11);
        for (const auto& section : CallSheetFields::sections())
            writeSection(section);
        writePeople(true, pick("演员到场安排", "Cast calls"));
        writePeople(false, pick("剧组到场安排", "Crew calls"));
        writeShots();
    }

private:
    [[nodiscard]] std::string pick(std::string_view chinese, std::string_view inEnglish) const {
        return std::string(english ? inEnglish : chinese);
    }

    void writeSection(const CallSheetSection& section) {
        bool first = true;
        for (const auto& field : section.fields) {
            const Text& value = sheet[field.key];
            const bool always =
                std::find(alwaysShown.begin(), alwaysShown.end(), field.key) != alwaysShown.end();
            if (value.empty() && !always)
                continue;
            if (std::exchange(first, false)) {
                flow.advance(12);
                flow.ensure(65);
                flow.text(pick(section.zh, section.en), 15, true);
            }
            flow.text(pick(field.zh, field.en) + ": " +
                          (value.empty() ? pick("待填写", "Not set") : value.utf8()),
                      11);
        }
    }

    void writePeople(bool cast, const std::string& heading) {
        bool first = true;
        for (const auto& person : sheet.people) {
            if (person.isCast != cast)
                continue;
            if (std::exchange(first, false)) {
                flow.advance(12);
                flow.ensure(90);
                flow.text(heading, 15, true);
            }
            writePerson(person);
        }
    }

    void writePerson(const CallSheetPerson& person) {
        flow.ensure(70);
        flow.text(person.role.utf8() + " · " +
                      (person.name.empty() ? pick("姓名待填", "Name not set") : person.name.utf8()),
                  11, true);
        std::string call = pick("到场：", "Call: ") +
                           (person.callTime.empty() ? pick("待定", "TBD") : person.callTime.utf8());
        if (!person.phone.empty())
            call += " · " + pick("电话：", "Phone: ") + person.phone.utf8();
        flow.text(call, 11);
        if (person.isCast)
            writePreparation(person);
        if (!person.notes.empty())
            flow.text(person.notes.utf8(), 11);
    }

    void writePreparation(const CallSheetPerson& person) {
        std::string line;
        const auto add = [&](const std::string& label, const Text& value) {
            if (!value.empty())
                line += (line.empty() ? "" : " · ") + label + ": " + value.utf8();
        };
        add(pick("化妆", "Makeup"), person.makeup);
        add(pick("服装", "Wardrobe"), person.wardrobe);
        add(pick("就绪", "Ready"), person.ready);
        if (!line.empty())
            flow.text(line, 11);
    }

    void writeShots() {
        flow.advance(12);
        flow.ensure(90);
        flow.text(pick("当日镜头安排", "Daily shot schedule"), 15, true);
        const auto shots = CallSheetPDF::scheduledShots(project, sheet);
        if (shots.empty())
            flow.text(pick("当天尚未安排镜头。", "No shots scheduled for this day."), 11);
        for (const auto& [act, shot] : shots) {
            flow.ensure(65);
            flow.text(CallSheetPDF::timeRange(*shot, sheet) + " · " + act->title.utf8() + " / " +
                          shot->code.utf8(),
                      11, true);
            flow.text(shot->title.utf8(), 11);
            if (!shot->description.empty())
                flow.text(shot->description.utf8(), 10);
        }
    }

    const Project& project;
    const CallSheet& sheet;
    const bool english;
    DocumentFlow& flow;
};

const CallSheet* sheetOf(const Project& project, const Identifier& id) {
    for (const auto& sheet : project.callSheets())
        if (sheet.id == id)
            return &sheet;
    return nullptr;
}

}  // namespace

std::string CallSheetPDF::dateText(const CallSheet& sheet) {
    return readClock(sheet.date, sheet.calendar().zone()).dayText();
}

std::vector<ScheduledShot> CallSheetPDF::scheduledShots(const Project& project, const CallSheet& sheet) {
    std::vector<ScheduledShot> list;
    const auto day = sheet.calendar().day(sheet.date);
    if (!day)
        return list;
    for (const auto& act : project.acts)
        for (const auto& shot : act->shots)
            if (!shot->cancelled && ShootSchedule::occurs(*shot, *day))
                list.push_back({act, shot});
    std::stable_sort(list.begin(), list.end(), [](const auto& a, const auto& b) {
        return *a.shot->scheduledAt < *b.shot->scheduledAt;
    });
    return list;
}

std::string CallSheetPDF::timeRange(const Shot& shot, const CallSheet& sheet) {
    if (!shot.scheduledAt)
        return "—";
    const Calendar calendar = sheet.calendar();
    const ClockReading start = readClock(*shot.scheduledAt, calendar.zone());
    const ClockReading end = readClock(*shot.scheduledEnd(), calendar.zone());
    if (calendar.isSameDay(*shot.scheduledAt, *shot.scheduledEnd()))
        return start.timeText() + " – " + end.timeText();
    return start.monthDayText() + " " + start.timeText() + " – " + end.monthDayText() + " " + end.timeText();
}

void CallSheetPDF::write(const Project& project, const CallSheet& sheet, bool english, DocumentFlow& flow) {
    Writing(project, sheet, english, flow).run();
}

QByteArray CallSheetPDF::render(const Project& project, const CallSheet& sheet, const VantryStore& store) {
    PDFWriter writer(store.now(), {});
    write(project, sheet, store.english(), writer);
    return writer.finish();
}

void CallSheetPDF::save(const std::shared_ptr<const Project>& project, const Identifier& sheetID,
                        VantryStore& store) {
    // A notice that goes to a whole crew must not say what the disk does not hold.
    if (!store.flush())
        return;
    const auto written = store.project(project->id);
    const CallSheet* sheet = written ? sheetOf(*written, sheetID) : nullptr;
    if (sheet == nullptr)
        return;
    const auto name = documentName(written->title, "-" + dateText(*sheet) + "-CallSheet.pdf");
    store.exportDocument(name, [&, sheet] { return render(*written, *sheet, store); });
}

}  // namespace vantry
