#pragma once

#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include <QAbstractItemModel>

#include "Vantry/interface/routes/Route.h"
#include "VantryCore/records/Library.h"

namespace vantry {

/// The library as a tree: productions, acts, shots, takes, and under each shot's takes a row for a new one.
///
/// It follows the library by identifier: a record that stays keeps its row, whatever happens around it, and
/// only what differs is announced. The model is never reset. Rows are made when somebody looks at them; a
/// refresh costs what changed.
class LibraryTreeModel final : public QAbstractItemModel {
    Q_OBJECT

public:
    enum class Kind { project, act, shot, take, newTake };
    enum Role {
        detailRole = Qt::UserRole,  ///< the second line, also the accessible description
        glyphRole                   ///< a Glyph as a number
    };

    explicit LibraryTreeModel(QObject* parent = nullptr);
    ~LibraryTreeModel() override;

    /// Brings the rows in line with the library, in the language asked for.
    void refresh(const Library& library, bool english);

    [[nodiscard]] static Kind kindOf(const QModelIndex& index);
    /// The record of the row; for a new take's row the shot.
    [[nodiscard]] static Identifier recordOf(const QModelIndex& index);
    /// Whether it is the row of a production, an act or a shot, which open even where nothing is in them.
    [[nodiscard]] static bool canOpen(const QModelIndex& index) { return kindOf(index) <= Kind::shot; }
    /// Where the row leads; for a new take's row its shot.
    [[nodiscard]] static Route routeOf(const QModelIndex& index);
    /// The row that stands for `route`, or an invalid index.
    [[nodiscard]] QModelIndex indexOf(const Route& route) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    /// What a row stands for. Holding it counts as sharing it, so an edit makes another: the same pointer is
    /// the same content.
    using Record = std::variant<std::monostate, std::shared_ptr<const Project>, std::shared_ptr<const Act>,
                                std::shared_ptr<const Shot>, std::shared_ptr<const VantryTake>>;
    struct Entry;
    struct Row;

    [[nodiscard]] static std::vector<Entry> entriesOf(const Library& library);
    [[nodiscard]] static std::vector<Entry> entriesOf(const Row& row);
    [[nodiscard]] static Row& rowOf(const QModelIndex& index);
    [[nodiscard]] static QString titleOf(const Row& row, bool english);
    [[nodiscard]] static QString detailOf(const Row& row, bool english);
    static void adopt(Row& parent, std::size_t from);
    void load(Row& row) const;
    [[nodiscard]] QModelIndex indexOf(const Row& row) const;
    [[nodiscard]] static Row* find(const Row& parent, const Identifier& id);

    void update(Row& row, const Entry& entry, bool languageChanged);
    void updateChildren(Row& row, const std::vector<Entry>& wanted, bool languageChanged);
    void removeOthers(Row& row, const std::vector<Entry>& wanted);
    void place(Row& row, const std::vector<Entry>& wanted);
    void move(Row& row, std::size_t from, std::size_t to);
    void insert(Row& row, std::size_t at, const std::vector<Entry>& wanted, std::size_t count);

    const std::unique_ptr<Row> root;
    bool english = false;
};

}  // namespace vantry
