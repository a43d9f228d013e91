#include "tests/support/RandomRecords.h"

#include <bit>
#include <cmath>
#include <limits>

namespace vantry::support {
namespace {

constexpr char32_t accents[] = {0x300, 0x301, 0x302, 0x303, 0x308, 0x30A, 0x316, 0x323, 0x327, 0x328, 0x345};
constexpr char32_t composed[] = {0xC5,   0xE9,   0xF1,   0xFC,   0x1E69, 0x1EAD,
                                 0x212B, 0x1F84, 0x01D5, 0x0344, 0x0958};
constexpr char32_t singletons[] = {0x212A, 0x2126, 0x037E, 0x0387, 0x1FEF,
                                   0x2000, 0x2001, 0x2329, 0xF900, 0x2F800};
constexpr char32_t hangul[] = {0x1100, 0x1112, 0x1161, 0x1175, 0x11A8,
                               0x11C2, 0xAC00, 0xAC01, 0xAC1C, 0xD7A3};
constexpr char32_t chinese[] = {0x96E8, 0x591C, 0x8F66, 0x7AD9, 0x955C, 0x5934, 0xFF1A, 0x3000, 0x20BB7};
constexpr char32_t special[] = {0x00,   0x01,   0x08,   0x09,   0x0A,   0x0C,    0x0D,
                                0x1F,   0x22,   0x2F,   0x5C,   0x7F,   0x85,    0xA0,
                                0x200B, 0x2028, 0x2029, 0xFEFF, 0xFFFD, 0x1F3AC, 0x10FFFF};
constexpr const char* zones[] = {"America/New_York",    "Asia/Shanghai", "Europe/Berlin", "UTC",
                                 "Australia/Lord_Howe", "Pacific/Apia"};

}  // namespace

void appendUtf8(std::string& out, char32_t point) {
    const auto byte = [&out](char32_t value) { out += static_cast<char>(value); };
    if (point < 0x80) {
        byte(point);
    } else if (point < 0x800) {
        byte(0xC0 | point >> 6);
        byte(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        byte(0xE0 | point >> 12);
        byte(0x80 | (point >> 6 & 0x3F));
        byte(0x80 | (point & 0x3F));
    } else {
        byte(0xF0 | point >> 18);
        byte(0x80 | (point >> 12 & 0x3F));
        byte(0x80 | (point >> 6 & 0x3F));
        byte(0x80 | (point & 0x3F));
    }
}

std::int64_t RandomRecords::number(std::int64_t low, std::int64_t high) {
    // Not a standard distribution: those differ from one library to another.
    const auto range = static_cast<std::uint64_t>(high) - static_cast<std::uint64_t>(low) + 1;
    const std::uint64_t drawn = generator();
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(low) + (range == 0 ? drawn : drawn % range));
}

bool RandomRecords::chance(double probability) {
    return static_cast<double>(number(0, 999'999)) < probability * 1e6;
}

Identifier RandomRecords::identifier() {
    Identifier::Bytes bytes;
    for (auto& byte : bytes)
        byte = static_cast<std::uint8_t>(number(0, 255));
    return Identifier(bytes);
}

char32_t RandomRecords::character() {
    switch (number(0, 11)) {
    case 0:
        return oneOf(accents);
    case 1:
        return oneOf(composed);
    case 2:
        return oneOf(singletons);
    case 3:
        return oneOf(hangul);
    case 4:
        return oneOf(chinese);
    case 5:
        return oneOf(special);
    case 6: {
        const auto any = static_cast<char32_t>(number(0x80, 0x10FFFF));
        return any >= 0xD800 && any <= 0xDFFF ? 0xFFFD : any;
    }
    default:
        return static_cast<char32_t>(number(0x20, 0x7E));
    }
}

std::string RandomRecords::text(int longest) {
    std::string out;
    for (auto left = number(0, longest); left > 0; --left)
        appendUtf8(out, character());
    return out;
}

double RandomRecords::finite() {
    switch (number(0, 5)) {
    case 0:
        return static_cast<double>(number(-10, 10));
    case 1:
        return static_cast<double>(number(0, 1'000'000'000)) + static_cast<double>(number(0, 999)) / 1000;
    case 2:
        return static_cast<double>(
            number(std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()));
    case 3:
        return 1.0 / static_cast<double>(number(1, 1'000'000'000));
    case 4:
        return std::pow(10.0, static_cast<double>(number(-330, 308)));
    default: {
        const auto any = std::bit_cast<double>(static_cast<std::uint64_t>(
            number(std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max())));
        return std::isfinite(any) ? any : 0.1;
    }
    }
}

void RandomRecords::fill(std::int64_t& value) {
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    value = chance(0.7) ? number(-5, 100) : number(least, most);
}

void RandomRecords::fill(TextMap& value) {
    value = {};
    for (auto left = number(0, 4); left > 0; --left) {
        const auto known = Parameters::allKeys[static_cast<std::size_t>(number(0, 15))];
        value.set(chance(0.5) ? Text(known) : Text(text(5)), Text(text()));
    }
}

void RandomRecords::fill(Bytes& value) {
    value.resize(static_cast<std::size_t>(number(0, 40)));
    for (auto& byte : value)
        byte = static_cast<std::uint8_t>(number(0, 255));
}

VantryTake RandomRecords::validTake() {
    auto take = make<VantryTake>();
    take.number = number(1, 99);
    take.stars = number(0, 5);
    for (auto* counter : {&take.cameraNumber, &take.soundNumber})
        if (*counter)
            *counter = number(1, 99);
    return take;
}

Shot RandomRecords::validShot() {
    auto shot = make<Shot>();
    shot.durationMinutes = number(1, 10080);
    if (shot.imageKey) {
        std::string key;
        for (int i = 0; i < 64; ++i)
            key += "0123456789abcdefABCDEF"[number(0, 21)];
        shot.imageKey = Text(key);
    }
    for (auto& stroke : shot.strokes)
        for (auto& point : stroke.points)
            point = {static_cast<double>(number(0, 1000)) / 1000, static_cast<double>(number(0, 1))};
    for (auto& take : shot.takes)
        take = validTake();
    return shot;
}

Act RandomRecords::validAct() {
    auto act = make<Act>();
    for (auto& shot : act.shots)
        shot = validShot();
    return act;
}

CallSheet RandomRecords::validCallSheet() {
    auto sheet = make<CallSheet>();
    sheet.timeZoneID = oneOf(zones);
    return sheet;
}

RelatedFile RandomRecords::validReference() {
    auto reference = make<RelatedFile>();
    reference.location = reference.kind == RelatedFileKind::link
                             ? Text("example.com/" + std::to_string(number(0, 999)))
                             : Text("/films/" + text(6));
    return reference;
}

Project RandomRecords::validProject() {
    auto project = make<Project>();
    if (project.callSheetRecords)
        for (auto& sheet : *project.callSheetRecords)
            sheet = validCallSheet();
    if (project.relatedFileRecords)
        for (auto& reference : *project.relatedFileRecords)
            reference = validReference();
    for (auto& act : project.acts)
        act = validAct();
    return project;
}

Library RandomRecords::validLibrary(int projects) {
    Library library;
    for (int i = 0; i < projects; ++i)
        library.projects.emplace_back(validProject());
    return library;
}

}  // namespace vantry::support
