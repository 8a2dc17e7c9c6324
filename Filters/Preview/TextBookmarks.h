#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

/// The places of a text document that have names, and the ids of their elements in a page: "b1", "b2", ... A
/// link can come before its place, so all names are gathered first.
class TextBookmarks
{
public:
    /// Gathers the names of bookmarks wherever blocks stand: also in cells, shapes, headers, footers and
    /// notes.
    /// @param depthMax how deep in each other tables, text boxes and tables of contents are looked at
    TextBookmarks(const DOM::Document& document, unsigned depthMax);

    /// The id to link to; empty where no place has that name.
    std::string findTarget(const std::string& name);

    /// The id for the element at the place that is reached now; empty where it is no place of that name, or
    /// one was reached before.
    std::string takePlace(const std::string& name);

    /// The ids that were linked to, and have no element.
    std::vector<std::string> getMissing() const;

private:
    struct Bookmark
    {
        std::size_t number = 0;
        bool isLinked = false;
        bool isPlaced = false;
    };

    std::map<std::string, Bookmark> _bookmarks; // by name
};

} // namespace QV::Filters
