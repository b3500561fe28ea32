#include "platform/xml/query.h"

#include <map>
#include <pugixml.hpp>
#include <string>

#include "tessel/error.h"

namespace tessel::xml {
namespace {

// Compiling a path costs more than most documents take to search, and the same few are asked for again and
// again.
const pugi::xpath_query& Compiled(std::string_view xpath) {
    constexpr std::size_t mostQueries = 256;
    thread_local std::map<std::string, pugi::xpath_query, std::less<>> queries;
    if (const auto known = queries.find(xpath); known != queries.end()) return known->second;
    if (queries.size() >= mostQueries) queries.clear();
    const std::string path(xpath);
    return queries.emplace(path, pugi::xpath_query(path.c_str())).first->second;
}

pugi::xpath_node_set Select(const pugi::xml_node& node, std::string_view xpath) {
    try {
        auto nodes = Compiled(xpath).evaluate_node_set(node);
        nodes.sort();
        return nodes;
    } catch (const pugi::xpath_exception& fault) {
        throw Error(ErrorKind::Xml,
                    "\"" + std::string(xpath) + "\" is no XPath to an element: " + fault.what() + ".");
    }
}

}  // namespace

void* SelectElement(void* node, std::string_view xpath) {
    for (const auto& found : Select(pugi::xml_node(static_cast<pugi::xml_node_struct*>(node)), xpath)) {
        if (found.node().type() == pugi::node_element) return found.node().internal_object();
    }
    return nullptr;
}

}  // namespace tessel::xml
