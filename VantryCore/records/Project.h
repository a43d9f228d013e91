#pragma once

#include <optional>
#include <tuple>
#include <vector>

#include "VantryCore/records/Act.h"
#include "VantryCore/records/CallSheet.h"
#include "VantryCore/records/CastMember.h"
#include "VantryCore/records/CrewMember.h"
#include "VantryCore/records/RelatedFile.h"

namespace vantry {

/// A production. Its four optional lists are read and written through the accessors below.
struct Project {
    Identifier id;
    std::optional<Text> conflictKey;
    Text title;
    Text director;
    std::optional<std::vector<CrewMember>> crewMembers;
    std::optional<std::vector<CastMember>> castMembers;
    std::optional<std::vector<CallSheet>> callSheetRecords;
    std::optional<std::vector<RelatedFile>> relatedFileRecords;
    Text notes;
    Parameters defaults;
    Moment createdAt;
    NodeList<Act> acts;  ///< in script order

    static constexpr auto fields() {
        using P = Project;
        return std::tuple(
            field("id", &P::id), field("conflictKey", &P::conflictKey), field("title", &P::title),
            field("director", &P::director), field("crewMembers", &P::crewMembers),
            field("castMembers", &P::castMembers), field("callSheetRecords", &P::callSheetRecords),
            field("relatedFileRecords", &P::relatedFileRecords), field("notes", &P::notes),
            field("defaults", &P::defaults), field("createdAt", &P::createdAt), field("acts", &P::acts));
    }

    /// A new production with a fresh identifier, made now.
    [[nodiscard]] static Project make(Text title);

    // An absent list reads as an empty one; an empty one is stored as absent.
    [[nodiscard]] const std::vector<CrewMember>& crew() const { return listOrNone(crewMembers); }
    [[nodiscard]] const std::vector<CastMember>& cast() const { return listOrNone(castMembers); }
    [[nodiscard]] const std::vector<CallSheet>& callSheets() const { return listOrNone(callSheetRecords); }
    [[nodiscard]] const std::vector<RelatedFile>& relatedFiles() const {
        return listOrNone(relatedFileRecords);
    }
    void setCrew(std::vector<CrewMember> list) { store(crewMembers, std::move(list)); }
    void setCast(std::vector<CastMember> list) { store(castMembers, std::move(list)); }
    void setCallSheets(std::vector<CallSheet> list) { store(callSheetRecords, std::move(list)); }
    void setRelatedFiles(std::vector<RelatedFile> list) { store(relatedFileRecords, std::move(list)); }

    /// The shots of all acts, act by act.
    [[nodiscard]] std::vector<Node<Shot>> shots() const;
    /// For each inherited key that is blank in `defaults` and not in `values`, takes the value over.
    void captureFirstValues(const Parameters& values);
    /// Logs a take: captures the shot's values as defaults, fills the shot from the defaults, then makes the
    /// take with the shot's parameters. Nothing happens, and nothing is returned, when the act or the shot is
    /// unknown or the shot is cancelled.
    std::optional<Identifier> addTake(const Identifier& actID, const Identifier& shotID);
    /// Appends the reference unless one with its kind and identity is there; tells whether it did.
    bool attach(RelatedFile file);

private:
    template <class T>
    static const std::vector<T>& listOrNone(const std::optional<std::vector<T>>& list) {
        static const std::vector<T> none;
        return list ? *list : none;
    }
    template <class T>
    static void store(std::optional<std::vector<T>>& member, std::vector<T> list) {
        member = list.empty() ? std::nullopt : std::optional(std::move(list));
    }
};

}  // namespace vantry
