#pragma once

#include <functional>
#include <vector>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QWidget>

#include "gallery/ForcedState.h"

namespace vantry::gallery {

class Board;

/// The specimens of one kind under their title, in rows from the left.
class Section final : public QWidget {
public:
    Section(Board& board, const Phrase& title);

    /// What a new component is made in.
    [[nodiscard]] QWidget* place() noexcept { return this; }
    /// Shows `component` behind those before it, with `caption` beneath; `share` of the row's width, or its
    /// own width for 0.
    void add(QWidget* component, const Phrase& caption, int share = 0);
    /// The same, put into that state and captioned with it.
    void add(QWidget* component, State state, int share = 0);
    /// What follows stands below all that there is.
    void startRow();

private:
    Board& board;
    QVBoxLayout* rows;
    QHBoxLayout* row = nullptr;
    const QString name;
};

/// All components of the design system in all their states. It has a fixed width and says everything in the
/// language that it is told.
class Board final : public QWidget {
public:
    explicit Board(QWidget* parent = nullptr);

    /// A section in half of the width, or in all of it.
    enum class Width { half, full };
    Section& section(const Phrase& title, Width width = Width::half);
    /// `speak` is called with the language, now and whenever it changes.
    void say(const std::function<void(bool english)>& speak);
    void say(const std::function<void(const QString& text)>& show, const Phrase& phrase);
    /// Puts `control` into that state once the board stands in its window.
    void force(QWidget& control, State state);
    void addSpecimen(QWidget& component, const QString& name);

    void setEnglish(bool english);
    [[nodiscard]] bool isEnglish() const noexcept { return english; }

    struct Specimen {
        QString name;  ///< of its section and itself, unique
        QRect place;   ///< on the board
    };
    [[nodiscard]] std::vector<Specimen> specimens() const;

protected:
    void showEvent(QShowEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void forceAll();

    QGridLayout* grid;
    int nextCell = 0;
    bool forcing = false;
    bool english = true;
    std::vector<std::function<void(bool)>> phrases;
    std::vector<std::pair<QWidget*, State>> forced;
    std::vector<std::pair<QWidget*, QString>> shown;
};

}  // namespace vantry::gallery
