#include "VideoPage.h"

#include "AppData.h"
#include "GLMovieRenderer.h"

VideoPage::VideoPage(AppData& appData) : PreferencesPage(appData)
{
    using V = SettingsValues;
    using R = GLMovieRenderer;
    addSection(tr("Picture"));
    addChoice<int>(tr("&Size of the picture:"), &V::drawMode,
                   {{tr("as large as fits"), R::TouchInside},
                    {tr("fills the window, cut off at the edges"), R::TouchOutside},
                    {tr("stretched to the window"), R::Stretch},
                    {tr("half its own size"), R::HalfSize},
                    {tr("its own size"), R::NormalSize},
                    {tr("twice its own size"), R::DoubleSize}});
    addSwitch(tr("De&interlace pictures that are made of two fields"), &V::deinterlace);
    addSwitch(tr("Smooth the &edges of what is drawn (antialiasing)"), &V::enableAntialiasing);
    addSection(tr("Graphics card"));
    addSwitch(tr("&Convert colours on the graphics card"), &V::useHardwareColourConversion);
    using Conversion = V::ColourConversion;
    addChoice<Conversion>(tr("&By means of:"), &V::colourConversion,
                          {{tr("the best that the driver offers"), Conversion::Automatic},
                           {tr("a shader"), Conversion::Shader},
                           {tr("a fragment program"), Conversion::FragmentProgram},
                           {tr("the processor"), Conversion::Software}});
    using Presentation = V::Presentation;
    addChoice<Presentation>(tr("&Pictures reach the screen by:"), &V::presentation,
                            {{tr("what is fastest here"), Presentation::Automatic},
                             {tr("OpenGL"), Presentation::OpenGl},
                             {tr("shared memory"), Presentation::SharedMemory}});
    addNote(tr("Changes other than the size open the channels that play again, which takes a moment."));
}
