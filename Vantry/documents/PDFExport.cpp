#include "Vantry/documents/PDFExport.h"

#include <array>
#include <span>
#include <utility>

#include "Vantry/app/VantryStore.h"
#include "Vantry/documents/DocumentName.h"
#include "Vantry/documents/PDFWriter.h"
#include "VantryCore/records/ClockReading.h"

namespace vantry {
namespace {

// The labels of a printed line, shorter than those of the form.
constexpr std::array lens{
    ParameterField{"manufacturer", "厂商", "Manufacturer"},
    ParameterField{"focal", "焦段", "Focal length"},
    ParameterField{"aperture", "光圈", "Aperture"},
    ParameterField{"filters", "滤镜", "Filters"},
    ParameterField{"nd", "ND", "ND"},
};

constexpr std::array camera{
    ParameterField{"iso", "ISO", "ISO"},          ParameterField{"shutterMode", "快门模式", "Shutter mode"},
    ParameterField{"shutter", "快门", "Shutter"}, ParameterField{"wb", "白平衡", "WB"},
    ParameterField{"tint", "Tint", "Tint"},
};

constexpr std::array recording{
    ParameterField{"resolution", "分辨率", "Resolution"},
    ParameterField{"aspect", "画幅", "Aspect ratio"},
    ParameterField{"fps", "帧率", "Frame rate"},
    ParameterField{"log", "LOG", "LOG"},
    ParameterField{"raw", "RAW", "RAW"},
    ParameterField{"lut", "监视 LUT", "Monitoring LUT"},
};

constexpr std::array parameterGroups{
    ParameterSection{"镜头", "Lens", lens},
    ParameterSection{"相机", "Camera", camera},
    ParameterSection{"录制与监视", "Recording & monitoring", recording},
};

std::string orElse(const Text& text, const std::string& other) {
    return text.empty() ? other : text.utf8();
}

/// One pass over a production.
class Writing {
public:
    Writing(const Project& written, bool report, const DocumentSetting& given, DocumentFlow& to)
        : project(written)
        , isReport(report)
        , setting(given)
        , flow(to) {}

    void run() {
        head();
        for (const auto& act : project.acts) {
            actHead(*act);
            for (const auto& shot : act->shots)
                writeShot(*shot);
        }
    }

private:
    [[nodiscard]] std::string pick(const char* chinese, const char* english) const {
        return setting.english ? english : chinese;
    }

    void head() {
        flow.text(project.title.utf8(), 25, true);
        flow.text(isReport ? pick("拍摄报告 · 给导演", "Shoot report · Director")
                           : pick("分镜计划 · 给 DP", "Storyboard plan · DP"),
                  17);
        flow.text(pick("导演：", "Director: ") + project.director.utf8(), 11);
        for (const auto& member : project.crew())
            if (!isBlank(member.name.utf8()))
                flow.text(member.title(setting.english).utf8() + ": " + member.name.utf8(), 11);
        flow.text(PDFExport::dateAndTime(setting.now, setting.zone), 10);
        cast();
        if (!project.notes.empty())
            flow.text(project.notes.utf8(), 11);
        flow.advance(15);
    }

    void cast() {
        bool first = true;
        for (const auto& member : project.cast()) {
            if (isBlank(member.character.utf8()) && isBlank(member.actor.utf8()))
                continue;
            if (std::exchange(first, false))
                flow.text(pick("演员表", "Cast"), 14, true);
            flow.text(orElse(member.character, pick("角色待填写", "Character not set")) + " — " +
                          orElse(member.actor, pick("演员待定", "Not cast yet")),
                      11);
        }
    }

    void actHead(const Act& act) {
        flow.ensure(80);
        flow.text(act.title.utf8(), 20, true);
        const std::string active = std::to_string(act.activeCount());
        const std::string completed = std::to_string(act.completedCount());
        flow.text(setting.english ? active + " shots · " + completed + " complete"
                                  : active + " 镜 · 已完成 " + completed,
                  11);
    }

    void writeShot(const Shot& shot) {
        const bool hasFrame = shot.imageKey || !shot.strokes.empty();
        flow.ensure(!isReport && hasFrame ? 355 : 150);
        flow.text(shot.code.utf8() + " · " + shot.title.utf8() +
                      (shot.cancelled ? pick(" [取消拍摄]", " [Cancelled]") : ""),
                  16, true);
        if (shot.conflictKey)
            flow.text(pick("合并保留版本", "Retained merge version"), 10);
        if (shot.scheduledAt)
            flow.text(pick("排期：", "Schedule: ") + PDFExport::dateAndTime(*shot.scheduledAt, setting.zone) +
                          " → " + PDFExport::dateAndTime(*shot.scheduledEnd(), setting.zone),
                      11);
        if (!isReport)
            flow.storyboard(shot);
        flow.text(pick("描述：", "Description: ") + shot.description.utf8(), 11);
        flow.text(pick("景别 / 机位与运动：", "Framing / movement: ") + shot.framing.utf8() + " / " +
                      shot.movement.utf8(),
                  11);
        flow.text(pick("声音：", "Sound: ") + PDFExport::sound(shot.soundMode, setting.english) + " · " +
                      shot.soundDescription.utf8(),
                  11);
        if (isReport)
            writeTakes(shot);
        else
            PDFExport::parameters(shot.parameters, setting.english, flow);
        flow.advance(20);
    }

    void writeTakes(const Shot& shot) {
        if (shot.takes.empty())
            flow.text(pick("未拍摄 · 暂无 Take", "Not shot · No takes"), 11);
        for (const auto& take : shot.takes)
            writeTake(*take);
    }

    void writeTake(const VantryTake& take) {
        flow.ensure(115);
        flow.text("Take " + std::to_string(take.number) + " · " + resultName(take.result) + " · " +
                      std::to_string(take.stars) + "/5" +
                      (take.conflictKey ? pick(" [保留版本]", " [Retained version]") : ""),
                  14, true);
        flow.text(pick("现场笔记：", "On-set notes: "), 11, true);
        flow.text(orElse(take.notes, "—"), 11);
        flow.text(pick("相机素材名：", "Camera media: ") + orElse(take.cameraFile, "—"), 11);
        flow.text(pick("Mixer 素材名：", "Mixer media: ") + orElse(take.mixerFile, "—"), 11);
        flow.text(PDFExport::sound(take.soundMode, setting.english) + " · " +
                      pick("相机 Take ", "Camera take ") + orDash(take.cameraNumber) + " / " +
                      pick("声音 Take ", "Sound take ") + orDash(take.soundNumber),
                  11);
        PDFExport::parameters(take.parameters, setting.english, flow);
        flow.advance(14);
    }

    [[nodiscard]] std::string resultName(TakeResult result) const {
        switch (result) {
        case TakeResult::good:
            return "Good";
        case TakeResult::ng:
            return "NG";
        case TakeResult::pending:
            break;
        }
        return pick("待定", "Pending");
    }
    static std::string orDash(const std::optional<std::int64_t>& number) {
        return number ? std::to_string(*number) : "—";
    }

    const Project& project;
    const bool isReport;
    const DocumentSetting& setting;
    DocumentFlow& flow;
};

}  // namespace

std::string PDFExport::dateAndTime(Moment moment, const Zone& zone) {
    const ClockReading clock = readClock(moment, zone);
    return clock.dayText() + " " + clock.timeText();
}

std::string PDFExport::sound(SoundMode mode, bool english) {
    switch (mode) {
    case SoundMode::mos:
        return "MOS";
    case SoundMode::roomTone:
        return "Room Tone";
    case SoundMode::sync:
        break;
    }
    return english ? "Sync sound" : "同期声";
}

void PDFExport::parameters(const Parameters& values, bool english, DocumentFlow& flow) {
    for (const auto& group : parameterGroups) {
        std::string line(english ? group.en : group.zh);
        for (const auto& label : group.fields) {
            line += " · ";
            line += english ? label.en : label.zh;
            line += ": " + orElse(values[label.key], "—");
        }
        flow.text(line, 10);
    }
}

void PDFExport::write(const Project& project, bool report, const DocumentSetting& setting,
                      DocumentFlow& flow) {
    Writing(project, report, setting, flow).run();
}

QByteArray PDFExport::render(const Project& project, bool report, const VantryStore& store) {
    const DocumentSetting setting{store.english(), store.now(), Zone::machine()};
    PDFWriter writer(setting.now, [&store](const Text& key) { return store.imageFile(key); });
    write(project, report, setting, writer);
    return writer.finish();
}

void PDFExport::save(const std::shared_ptr<const Project>& project, bool report, VantryStore& store) {
    store.flush();
    const auto name = documentName(project->title, report ? "-Report.pdf" : "-Storyboard.pdf");
    store.exportDocument(name, [&] {
        // What was typed up to now belongs to it, though the menu opened earlier.
        const auto current = store.project(project->id);
        return render(current ? *current : *project, report, store);
    });
}

}  // namespace vantry
