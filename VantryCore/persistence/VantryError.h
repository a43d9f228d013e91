#pragma once

#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vantry {

/// The failures that the core names itself. `what()` is the message for a person, in both languages.
class VantryError : public std::exception {
public:
    enum class Case {
        invalidBackup,  ///< content that breaks a rule of the format, in a library file too
        missingMedia,   ///< an image that a record names is not there
        tooLarge,       ///< beyond a limit of size
    };

    explicit VantryError(Case which) noexcept
        : kind(which) {}

    [[nodiscard]] Case which() const noexcept { return kind; }
    [[nodiscard]] const char* what() const noexcept override;

private:
    Case kind;
};

/// Bytes that are not the JSON form of the record that was asked for. `what()` reads, for example,
/// `projects[3].acts[0].shots[12]: missing key "soundDescription"`; the place is left out for the whole.
class DecodingError : public std::runtime_error {
public:
    DecodingError(const std::string& place, const std::string& reason)
        : std::runtime_error(place.empty() ? reason : place + ": " + reason) {}
};

/// What to tell a person about a failure: the message of a `VantryError` or of the system as it stands; a
/// decoding error's place and reason behind a word in both languages.
[[nodiscard]] std::string localizedDescription(const std::exception& failure);

}  // namespace vantry
