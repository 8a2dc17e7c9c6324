#pragma once

#include <memory>
#include <utility>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/PageProps.h>

namespace QV::DOM {

/// A stretch of a text document whose pages are alike: from its first block to the next section's.
class Section
{
public:
    explicit Section(BlockPosition firstBlock)
        : _firstBlock(firstBlock)
    {
    }

    BlockPosition getFirstBlock() const { return _firstBlock; }

    /// Null where nothing is said about the pages.
    const std::shared_ptr<PageProps>& getPageProps() const { return _pageProps; }
    void setPageProps(std::shared_ptr<PageProps> props) { _pageProps = std::move(props); }

    /// What stands on pages without a pair of their own kind; null where nothing does.
    const std::shared_ptr<HeaderFooterPair>& getDefaultPair() const { return _defaultPair; }
    /// On the first page of the section; null where that page is as the others.
    const std::shared_ptr<HeaderFooterPair>& getFirstPair() const { return _firstPair; }
    /// On even pages; null where they are as the odd ones.
    const std::shared_ptr<HeaderFooterPair>& getEvenPair() const { return _evenPair; }
    void setDefaultPair(std::shared_ptr<HeaderFooterPair> pair) { _defaultPair = std::move(pair); }
    void setFirstPair(std::shared_ptr<HeaderFooterPair> pair) { _firstPair = std::move(pair); }
    void setEvenPair(std::shared_ptr<HeaderFooterPair> pair) { _evenPair = std::move(pair); }

private:
    BlockPosition _firstBlock;
    std::shared_ptr<PageProps> _pageProps;
    std::shared_ptr<HeaderFooterPair> _defaultPair;
    std::shared_ptr<HeaderFooterPair> _firstPair;
    std::shared_ptr<HeaderFooterPair> _evenPair;
};

} // namespace QV::DOM
