// Draws every image operation, symbol and dialog of the libraries on one sheet:
//
//     gallery [sheet.png]
#include <cstdio>
#include <cstdlib>

#include "Fennick/images/Images.h"
#include "Fennick/images/LayerImages.h"
#include "Lorrel/presentation/Colors.h"
#include "Lorrel/presentation/ImageAttachment.h"
#include "Lorrel/presentation/ImageOperations.h"
#include "Lorrel/presentation/PhotoEffect.h"
#include "Lorrel/presentation/TextUtilities.h"
#include "Lorrel/presentation/Views.h"
#include "Lorrel/resource_bundle_accessor.h"
#include "examples/gallery/Sheet.h"
#include "platform/files/IconService.h"
#include "platform/ui/Desktop.h"
#include "platform/ui/dialogs/DialogImages.h"
#include "platform/ui/icons/Symbols.h"
#include "platform/ui/text/AttributedString.h"
#include "platform/ui/views/Button.h"
#include "platform/ui/views/VisualEffectView.h"

using namespace Platform;
using namespace Lorrel;

namespace {

constexpr Size pictureSize{120, 80};
const Color orange = color(240, 130, 30);
const Color blue = color(40, 110, 220);

void fill(GraphicsContext& context, const Color& color, const BezierPath& path)
{
    context.setFillColor(color);
    context.fill(path);
}

// Hills under a sun: bright, dark and coloured parts for the effects to show.
ImageRef landscape()
{
    auto image = std::make_shared<Image>(pictureSize);
    ImageFocus focus(image);
    GraphicsContext& context = *focus.context();
    fill(context, color(120, 190, 245), BezierPath::rect({{}, pictureSize}));
    fill(context, color(255, 225, 90), BezierPath::oval(Rect::of(80, 10, 24, 24)));
    BezierPath far, near;
    far.move({0, 60}).curve({120, 45}, {40, 20}, {80, 70}).line({120, 80}).line({0, 80}).close();
    near.move({0, 65}).curve({120, 72}, {50, 45}, {70, 90}).line({120, 80}).line({0, 80}).close();
    fill(context, color(90, 150, 90), far);
    fill(context, color(30, 80, 50), near);
    fill(context, color(200, 50, 40), BezierPath::rect(Rect::of(24, 48, 14, 11)));
    return image;
}

void addImageOperations(Sheet& sheet)
{
    const ImageRef picture = landscape();
    sheet.addHeading("Images");
    sheet.add("source", picture);
    sheet.add("resized to 60 x 80", resized(picture, 60, 80));
    sheet.add("resized to height 40", resized(picture, 40));
    sheet.add("rounded, 24", rounded(picture, 24, 24));
    sheet.add("rounded, 60 x 40", rounded(picture, 60, 40));
    for (const PhotoEffect effect : {PhotoEffect::mono, PhotoEffect::tonal, PhotoEffect::noir}) {
        sheet.add(std::string(rawValue(effect)), applying(picture, effect));
    }
    const ImageRef stencil = Fennick::Images::symbol("gauge", 56, FontWeight::regular);
    sheet.add("template", stencil);
    sheet.add("tinted", tinted(stencil, orange));
    sheet.add("accent colour", tintedWithAccentColor(stencil));
    sheet.add("hierarchical", withHierarchicalColor(stencil, blue));
    for (const FontWeight weight : {FontWeight::ultraLight, FontWeight::medium, FontWeight::black}) {
        sheet.add("weight " + std::to_string(static_cast<int>(weight)),
                  Fennick::Images::symbol("cpu", blue, 40, weight));
    }
}

ImageRef swatch(const Color& color)
{
    Layer layer;
    layer.setFrame(Rect::of(0, 0, 60, 40));
    layer.setCornerRadius(8);
    layer.setBackgroundColor(color);
    return Fennick::snapshot(layer);
}

ImageRef layers()
{
    Layer layer;
    layer.setFrame(Rect::of(0, 0, 120, 80));
    layer.setContents(landscape());
    layer.setCornerRadius(20);
    layer.setMasksToBounds(true);
    const auto veil = std::make_shared<Layer>();
    veil->setFrame(Rect::of(50, 30, 80, 60));
    veil->setBackgroundColor(orange);
    veil->setOpacity(0.6);
    layer.addSublayer(veil);
    return Fennick::snapshot(layer);
}

ImageRef row(const std::string& appearance)
{
    const auto view = std::make_shared<VisualEffectView>(Rect::of(0, 0, 150, 40));
    view->setMaterial(VisualEffectView::Material::selection);
    view->setState(VisualEffectView::State::active);
    view->setEmphasized(appearance == Appearance::aqua);
    view->setWantsLayer(true);
    view->layer()->setCornerRadius(6);
    view->layer()->setMasksToBounds(true);
    view->layer()->setBackgroundColor(Color::calibratedWhite(appearance == Appearance::aqua ? 0.85 : 0.25));
    view->setAppearance(Appearance(appearance));
    const auto button = std::make_shared<Button>();
    button->setImage(Fennick::Images::symbol("cpu", 14, FontWeight::medium));
    button->setTitle("42.5 %");
    view->addSubview(button);
    centerInSuperview(button, 100, 24);
    return view->rendered();
}

void addLayersAndViews(Sheet& sheet)
{
    sheet.addHeading("Colours, layers, views and texts");
    sheet.add("orange", swatch(orange));
    sheet.add("inverted", swatch(inverted(orange)));
    sheet.add("layer snapshot", layers());
    sheet.add("button in a view, light", row(Appearance::aqua));
    sheet.add("the same, dark", row(Appearance::darkAqua));
    auto text = std::make_shared<Image>(Size{210, 70});
    {
        ImageFocus focus(text);
        const Font font = Font::system(16);
        const auto look = TextUtilities::attributes(font, Color::calibratedWhite(0.1), TextAlignment::center);
        AttributedString line("Wrapped and centred, with ", look);
        const auto image = std::make_shared<ImageAttachment>(resized(landscape(), 22), font);
        line.append(AttributedString(std::static_pointer_cast<TextAttachment>(image)));
        line.append(AttributedString(" an image inside", look));
        line.draw(Rect::of(0, 0, 210, 70));
    }
    sheet.add("text with an attachment", text);
}

void addSymbols(Sheet& sheet)
{
    sheet.addHeading("Symbols");
    for (const std::string& name : symbolNames()) {
        sheet.add(name, Fennick::Images::symbol(name, Color::calibratedWhite(0.15), 24, FontWeight::regular));
    }
}

void addIcons(Sheet& sheet)
{
    sheet.addHeading("Icons of files");
    sheet.add("folder", resized(IconService::shared().iconForFile("/"), 48));
    sheet.add("System Settings", resized(IconService::shared().iconForFile("/System Settings.app"), 48));
    for (const char* ending : {"png", "txt", "cpp", "mp3", "zip", "pdf"}) {
        if (const ImageRef icon = IconService::shared().iconForFileType(ending)) sheet.add(ending, resized(icon, 48));
    }
}

void addDialogs(Sheet& sheet)
{
    const std::vector<std::string> yesNo{Resources::text("NO"), Resources::text("YES")};
    sheet.addHeading("Dialogs");
    sheet.add("a question",
              alertImage({AlertStyle::warning, "Delete the history?", "It cannot be brought back.", yesNo}));
    sheet.add("the same as a sheet",
              alertImage({AlertStyle::informational, "Delete the history?", "It cannot be brought back.", yesNo}));
    sheet.add("a text prompt", alertImage({AlertStyle::warning,
                                           "Name of the profile",
                                           "Letters and digits.",
                                           {Resources::text("OK"), Resources::text("CANCEL")},
                                           AlertRequest::TextField{"Evening", {192, 21}}}));
    sheet.add("right to left", alertImage({AlertStyle::warning, "حذف السجل؟", "لا يمكن استعادته.", {"لا", "نعم"}}));
    OpenPanelRequest request;
    request.directory = Url::fromPath("/usr", true);
    request.prompt = Resources::text("ALLOW");
    sheet.add("the folder panel", openPanelImage(request));
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc > 2) {
        std::fprintf(stderr, "usage: gallery [sheet.png]\n");
        return 2;
    }
    const char* path = argc == 2 ? argv[1] : "gallery.png";
    // The sheet is the same wherever it is drawn, with a screen or without.
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    installDesktop();
    Sheet sheet(1080);
    addImageOperations(sheet);
    addLayersAndViews(sheet);
    addSymbols(sheet);
    addIcons(sheet);
    addDialogs(sheet);
    writePNG(sheet.image(), Url::fromPath(path));
    std::printf("%s\n", path);
    return 0;
}
