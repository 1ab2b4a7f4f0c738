#pragma once

#include <any>
#include <memory>
#include <string>
#include <vector>

#include "platform/runtime/Image.h"

namespace Lorrel {

// The model of a side bar of groups with items: titles, icons and a value per
// row, for the application's views to draw. Reference types with identity.
// Thread: main.
class SideBarObject {
public:
    explicit SideBarObject(std::string title) : title_(std::move(title)) {}
    virtual ~SideBarObject() = default;
    SideBarObject(const SideBarObject&) = delete;
    SideBarObject& operator=(const SideBarObject&) = delete;

    const std::string& title() const { return title_; }
    void setTitle(std::string title) { title_ = std::move(title); }

private:
    std::string title_;
};

class SideBarItem final : public SideBarObject {
public:
    // The represented object is the application's own; an empty one is absence.
    SideBarItem(std::string title, Platform::ImageRef icon, std::any representedObject = {})
        : SideBarObject(std::move(title)), icon_(std::move(icon)), representedObject_(std::move(representedObject))
    {
    }

    const Platform::ImageRef& icon() const { return icon_; }
    void setIcon(Platform::ImageRef icon) { icon_ = std::move(icon); }
    const std::any& representedObject() const { return representedObject_; }
    void setRepresentedObject(std::any object) { representedObject_ = std::move(object); }

private:
    Platform::ImageRef icon_;
    std::any representedObject_;
};

class SideBarGroup final : public SideBarObject {
public:
    using SideBarObject::SideBarObject;

    // In display order; one item may stand in it more than once.
    const std::vector<std::shared_ptr<SideBarItem>>& items() const { return items_; }

    void addItem(std::string title, Platform::ImageRef icon, std::any representedObject = {});
    void add(std::shared_ptr<SideBarItem> item);
    // Every appearance of this very item; equal titles do not matter.
    void remove(const std::shared_ptr<SideBarItem>& item);

private:
    std::vector<std::shared_ptr<SideBarItem>> items_;
};

}  // namespace Lorrel
