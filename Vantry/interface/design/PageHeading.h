#pragma once

#include <QWidget>

namespace vantry {

class Label;

/// The name of a page: what it belongs to, its title and, if there is one, a line about it. Long texts do not
/// make it grow beyond its lines: they are cut, and shown whole as hover help.
class PageHeading : public QWidget {
    Q_OBJECT

public:
    /// Title and subtitle take at most so many lines; 0 is no limit.
    struct Limits {
        int titleLines = 0;
        int subtitleLines = 0;
    };

    explicit PageHeading(Limits limits, QWidget* parent = nullptr);

    void setSubtitleLines(int most);
    void setTexts(const QString& eyebrow, const QString& title, const QString& subtitle = {});

private:
    Label* eyebrow;
    Label* title;
    Label* subtitle;
};

}  // namespace vantry
