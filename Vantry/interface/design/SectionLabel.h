#pragma once

#include <QWidget>

namespace vantry {

class Label;

/// The title of a part of a page or card, with a short fact at the right if there is one.
class SectionLabel final : public QWidget {
    Q_OBJECT

public:
    explicit SectionLabel(QWidget* parent = nullptr);

    void setTexts(const QString& title, const QString& trailing = {});

private:
    Label* title;
    Label* trailing;
};

/// The title of a section of a page, with what there is to say about it at the right.
class WorkspaceSection final : public QWidget {
    Q_OBJECT

public:
    explicit WorkspaceSection(QWidget* parent = nullptr);

    void setTexts(const QString& title, const QString& detail = {});

private:
    Label* title;
    Label* detail;
};

}  // namespace vantry
