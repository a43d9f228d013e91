#pragma once

#include <QObject>
#include <QString>

namespace vantry {

class DesktopAppearance;

/// Gives the application the palette of the chosen appearance: "dark" or "light" as told, with anything else
/// the desktop's, and whenever that changes. Qt repaints the widgets in the next turn of the event loop; none
/// is rebuilt.
class Appearance final : public QObject {
    Q_OBJECT

public:
    explicit Appearance(QObject* parent = nullptr);

    void setChoice(const QString& choice);

private:
    void apply();

    DesktopAppearance* desktop;
    QString choice;
};

}  // namespace vantry
