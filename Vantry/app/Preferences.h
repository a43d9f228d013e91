#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include <QString>

#include "VantryCore/records/Text.h"

class QSettings;

namespace vantry {

/// The user's choices that outlive a run: three keys, each optional, written at once.
class Preferences {
public:
    static constexpr std::string_view languageKey = "VantryLanguage";
    static constexpr std::string_view appearanceKey = "VantryAppearance";
    static constexpr std::string_view reduceMotionKey = "VantryReduceMotion";

    Preferences() = default;
    Preferences(const Preferences&) = delete;
    Preferences& operator=(const Preferences&) = delete;
    virtual ~Preferences() = default;

    /// The stored text as it is, or nothing.
    [[nodiscard]] virtual std::optional<Text> text(std::string_view key) = 0;
    virtual void setText(std::string_view key, const Text& value) = 0;
    [[nodiscard]] virtual bool flag(std::string_view key) = 0;
    virtual void setFlag(std::string_view key, bool value) = 0;
};

/// Preferences in the platform's store for this user and program, or in the file of that path. A failing
/// store is no failure of the program: the choice then holds for this run.
class StoredPreferences final : public Preferences {
public:
    explicit StoredPreferences(const QString& file = {});
    ~StoredPreferences() override;

    [[nodiscard]] std::optional<Text> text(std::string_view key) override;
    void setText(std::string_view key, const Text& value) override;
    [[nodiscard]] bool flag(std::string_view key) override;
    void setFlag(std::string_view key, bool value) override;

private:
    std::unique_ptr<QSettings> settings;
};

}  // namespace vantry
