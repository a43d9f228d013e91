#pragma once

#include <QHBoxLayout>
#include <QWidget>

namespace vantry {

class PageHeading;

/// The heading of a page of the workspace: its section, title and subtitle, with what can be done at the
/// right.
class WorkspaceHeading final : public QWidget {
    Q_OBJECT

public:
    /// The subtitle takes at most `subtitleLines`, 0 is no limit, and one line where a page has room for two
    /// columns. The title is one line.
    explicit WorkspaceHeading(int subtitleLines, QWidget* parent = nullptr);

    void setTexts(const QString& section, const QString& title, const QString& subtitle = {});
    /// Where the actions go, from the left.
    [[nodiscard]] QHBoxLayout& actions() noexcept { return *row; }

signals:
    /// Its page has room for one column only, or for two again.
    void narrowChanged(bool narrow);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    const int subtitleLines;
    bool isNarrow = false;
    PageHeading* texts;
    QHBoxLayout* row;
};

}  // namespace vantry
