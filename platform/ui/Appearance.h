#pragma once

#include <functional>
#include <memory>
#include <string>

namespace Platform {

// A look of the interface, known by its name. A value.
class Appearance {
public:
    static inline const std::string aqua = "NSAppearanceNameAqua";
    static inline const std::string darkAqua = "NSAppearanceNameDarkAqua";
    static inline const std::string highContrastAqua = "NSAppearanceNameAccessibilityHighContrastAqua";
    static inline const std::string highContrastDarkAqua = "NSAppearanceNameAccessibilityHighContrastDarkAqua";

    explicit Appearance(std::string name) : name_(std::move(name)) {}
    const std::string& name() const { return name_; }
    // The name speaks of dark, in any letter case.
    bool soundsDark() const;
    friend bool operator==(const Appearance&, const Appearance&) = default;

    // The look that drawing on this thread is for: that of the innermost Drawing scope, else current().
    static Appearance currentDrawing();
    // This thread's look where it has been set, else the desktop's.
    static Appearance current();
    static void setCurrent(const Appearance& appearance);
    static void resetCurrent();

    // Draws for another look during a scope; scopes nest.
    class [[nodiscard]] Drawing {
    public:
        explicit Drawing(const Appearance& appearance);
        ~Drawing();
        Drawing(const Drawing&) = delete;
        Drawing& operator=(const Drawing&) = delete;
    };

private:
    std::string name_;
};

}  // namespace Platform
