#include <FilterUtils/FU_MediaStorage.h>

namespace QV::FilterUtils {

MediaStorage::~MediaStorage() = default;

} // namespace QV::FilterUtils
