#include "examples/pellora/providers/Provider.h"

namespace Pellora {

using Category = Fennick::IdentifierCategory;

NumberReading Provider::addPercentage(const std::string& key, const std::string& name)
{
    auto reading = std::make_shared<Measure>(GraphScale::to(100), key, name, Category::percentage, 1);
    add(reading);
    return reading;
}

NumberReading Provider::addSize(const std::string& key, const std::string& name, GraphScale graph)
{
    auto reading = std::make_shared<Measure>(graph, key, name, Category::size, false);
    add(reading);
    return reading;
}

NumberReading Provider::addRaw(const std::string& key, const std::string& name, int decimals, GraphScale graph)
{
    auto reading = std::make_shared<Measure>(graph, key, name, decimals);
    add(reading);
    return reading;
}

void Provider::add(const std::shared_ptr<Fennick::Identifier>& reading)
{
    keys_.push_back(reading->identifier());
    store_->add(reading);
}

}  // namespace Pellora
