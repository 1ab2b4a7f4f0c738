#pragma once

#include <functional>
#include <vector>

#include "platform/ui/Image.h"
#include "platform/ui/views/Action.h"

namespace Tests {

// A target: notes the tag of each sender, then does what the test gives it to do.
class Chosen : public Platform::Responder {
public:
    void choose(Platform::ActionSender& sender)
    {
        tags.push_back(sender.tag());
        if (then) then();
    }
    std::vector<long> tags;
    std::function<void()> then;
};

// An icon of one colour.
inline Platform::ImageRef square(double side, const Platform::Color& color)
{
    return std::make_shared<Platform::Image>(Platform::Size{side, side}, [color](Platform::GraphicsContext& context) {
        context.setFillColor(color);
        context.fill({{}, context.size()}, Platform::CompositingOperation::copy);
    });
}

}  // namespace Tests
