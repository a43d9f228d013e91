#pragma once

#include <array>
#include <string_view>

#include <QFont>
#include <QString>

namespace vantry {

/// The type of the interface: seven roles, all of the Inter family, with a Chinese face behind it. Each role
/// has one line height for all scripts, so that lines keep their place when the language changes.
struct VantryType {
    enum class Role { title, heading, body, label, caption, emphasis, small };

    /// The faces in the order in which they are registered; ":/fonts/" and the name and ".ttf" is the file.
    static constexpr std::array<std::string_view, 4> families{"Inter-Regular", "Inter-Medium",
                                                              "Inter-SemiBold", "Inter-Bold"};

    /// Opens the resource file `bundle` and makes its faces known to this process. A face that is missing or
    /// cannot be read is skipped: the system's type stands in. Answers false when there is no such file.
    /// Needs the application object; calling it again does nothing more.
    [[nodiscard]] static bool registerFonts(const QString& bundle);

    [[nodiscard]] static QFont font(Role role);
    [[nodiscard]] static QFont font(Role role, QFont::Weight weight);
    /// The height of one line of that role.
    [[nodiscard]] static int lineHeight(Role role);
    /// The room between the lines of a paragraph that people write in, beyond that of the body.
    static constexpr int paragraphSpacing = 5;
    /// The height of one line of such a paragraph.
    [[nodiscard]] static int paragraphLineHeight();
};

}  // namespace vantry
