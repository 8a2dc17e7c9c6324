#pragma once

#include <cstddef>
#include <unordered_set>

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <DOM/Public/CellStyle.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/ShapeStyle.h>

namespace QV::DOM {

/// One object for each distinct value: a million cells with fifty formats hold fifty styles.
///
///     const SharedCellStyle a = factory.getShared(style);
///     const SharedCellStyle b = factory.getShared(CellStyle(style)); // a == b: the same object
///
/// Belongs to one document and one thread; the objects that it hands out are counted safely across threads
/// and may outlive it.
class DOM_API SharedObjectFactory
{
public:
    SharedObjectFactory() = default;

    SharedObjectFactory(const SharedObjectFactory&) = delete;
    SharedObjectFactory& operator=(const SharedObjectFactory&) = delete;

    /// The shared object that equals @p style, made on first use. O(1) on average.
    SharedCellStyle getShared(const CellStyle& style);
    SharedRunStyle getShared(const RunStyle& style);
    SharedParagraphStyle getShared(const ParagraphStyle& style);
    SharedShapeStyle getShared(const ShapeStyle& style);

    std::size_t getCellStylesCount() const { return _cellStyles.size(); }
    std::size_t getRunStylesCount() const { return _runStyles.size(); }
    std::size_t getParagraphStylesCount() const { return _paragraphStyles.size(); }
    std::size_t getShapeStylesCount() const { return _shapeStyles.size(); }

private:
    template <typename T>
    struct HashPointee
    {
        std::size_t operator()(const boost::intrusive_ptr<const T>& object) const
        {
            return hash_value(*object);
        }
    };

    template <typename T>
    struct ArePointeesEqual
    {
        bool operator()(const boost::intrusive_ptr<const T>& a, const boost::intrusive_ptr<const T>& b) const
        {
            return *a == *b;
        }
    };

    template <typename T>
    using Pool = std::unordered_set<boost::intrusive_ptr<const T>, HashPointee<T>, ArePointeesEqual<T>>;

    template <typename T>
    static boost::intrusive_ptr<const T> getFrom(Pool<T>& pool, const T& value);

    Pool<CellStyle> _cellStyles;
    Pool<RunStyle> _runStyles;
    Pool<ParagraphStyle> _paragraphStyles;
    Pool<ShapeStyle> _shapeStyles;
};

} // namespace QV::DOM
