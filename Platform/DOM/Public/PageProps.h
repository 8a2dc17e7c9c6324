#pragma once

#include <memory>
#include <utility>

#include <boost/optional.hpp>

namespace QV::DOM {

/// Distances from the four edges of a rectangle, inwards, in points. What is not set is not known.
class Insets
{
public:
    const boost::optional<float>& getLeft() const { return _left; }
    const boost::optional<float>& getTop() const { return _top; }
    const boost::optional<float>& getRight() const { return _right; }
    const boost::optional<float>& getBottom() const { return _bottom; }

    void setLeft(const boost::optional<float>& points) { _left = points; }
    void setTop(const boost::optional<float>& points) { _top = points; }
    void setRight(const boost::optional<float>& points) { _right = points; }
    void setBottom(const boost::optional<float>& points) { _bottom = points; }

private:
    boost::optional<float> _left;
    boost::optional<float> _top;
    boost::optional<float> _right;
    boost::optional<float> _bottom;
};

/// The pages of a section, in points.
class PageProps
{
public:
    const boost::optional<float>& getWidth() const { return _width; }
    const boost::optional<float>& getHeight() const { return _height; }
    /// Between the edges of the page and its text. Null where nothing is said.
    const std::shared_ptr<Insets>& getMargins() const { return _margins; }
    /// From the top edge to the header, and from the bottom edge to the footer.
    const boost::optional<float>& getHeaderDistance() const { return _headerDistance; }
    const boost::optional<float>& getFooterDistance() const { return _footerDistance; }

    void setWidth(const boost::optional<float>& points) { _width = points; }
    void setHeight(const boost::optional<float>& points) { _height = points; }
    void setMargins(std::shared_ptr<Insets> margins) { _margins = std::move(margins); }
    void setHeaderDistance(const boost::optional<float>& points) { _headerDistance = points; }
    void setFooterDistance(const boost::optional<float>& points) { _footerDistance = points; }

private:
    boost::optional<float> _width;
    boost::optional<float> _height;
    std::shared_ptr<Insets> _margins;
    boost::optional<float> _headerDistance;
    boost::optional<float> _footerDistance;
};

} // namespace QV::DOM
