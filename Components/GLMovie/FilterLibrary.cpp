#include "FilterLibrary.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QLibrary>

#include <optional>

namespace
{

std::optional<FilterLibrary> load()
{
    QLibrary library(QStringLiteral("avfilter"), LIBAVFILTER_VERSION_MAJOR);
    bool isWhole = true;
    auto const resolve = [&]<typename Function>(Function& function, char const* name) {
        function = reinterpret_cast<Function>(library.resolve(name));
        isWhole = isWhole && function;
    };
    FilterLibrary functions;
    resolve(functions.graphAlloc, "avfilter_graph_alloc");
    resolve(functions.graphFree, "avfilter_graph_free");
    resolve(functions.graphCreateFilter, "avfilter_graph_create_filter");
    resolve(functions.graphConfig, "avfilter_graph_config");
    resolve(functions.getByName, "avfilter_get_by_name");
    resolve(functions.link, "avfilter_link");
    resolve(functions.addFrame, "av_buffersrc_add_frame");
    resolve(functions.getFrame, "av_buffersink_get_frame");
    resolve(functions.timeBase, "av_buffersink_get_time_base");
    if (isWhole)
        return functions;
    LoggerManager::logger()->logMessage(Logger::Error, __FILE__, __LINE__, "There is no libavfilter: %s",
                                        qUtf8Printable(library.errorString()));
    return {};
}

} // namespace

FilterLibrary const* FilterLibrary::get()
{
    static std::optional<FilterLibrary> const library = load();
    return library ? &*library : nullptr;
}
