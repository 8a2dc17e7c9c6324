#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include <boost/functional/hash.hpp>

namespace QV::DOM {

/// A change that somebody made and nobody has accepted or refused yet.
class TrackedChange
{
public:
    enum class Kind : std::uint8_t
    {
        Inserted,
        Deleted,
        MovedFrom, ///< where moved text stood
        MovedTo,   ///< where it stands
    };

    /// @param author may be empty
    /// @param date as the file has it, such as "2024-05-01T10:00:00Z"; may be empty
    TrackedChange(Kind kind, std::string author, std::string date)
        : _author(std::move(author))
        , _date(std::move(date))
        , _kind(kind)
    {
    }

    Kind getKind() const { return _kind; }
    const std::string& getAuthor() const { return _author; }
    const std::string& getDate() const { return _date; }

    /// Whether the change takes text away: it is deleted, or has moved elsewhere.
    bool isRemoval() const { return _kind == Kind::Deleted || _kind == Kind::MovedFrom; }

    friend bool operator==(const TrackedChange& a, const TrackedChange& b)
    {
        return a._kind == b._kind && a._author == b._author && a._date == b._date;
    }
    friend bool operator!=(const TrackedChange& a, const TrackedChange& b) { return !(a == b); }
    friend std::size_t hash_value(const TrackedChange& change)
    {
        std::size_t seed = 0;
        boost::hash_combine(seed, change._kind);
        boost::hash_combine(seed, change._author);
        boost::hash_combine(seed, change._date);
        return seed;
    }

private:
    std::string _author;
    std::string _date;
    Kind _kind;
};

} // namespace QV::DOM
