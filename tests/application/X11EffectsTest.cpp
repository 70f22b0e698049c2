#include "AppData.h"
#include "EffectsChain.h"
#include "EffectsLibrary.h"
#include "EventLoop.h"
#include "GLMovieShader.h"
#include "GLWidget.h"
#include "SettingsFile.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// The trials are the program's own, with the driver of the display.
TEST(X11Effects, AnEffectThatFailsOrHangsNeverCostsThePicture)
{
    settingsFile().clear();
    settingsFile().setValue("application/service/url", "http://127.0.0.1:9"); // Nobody is there.
    QTemporaryDir const directory;
    QWidget window;
    AppData appData;
    appData.initialize(&window);
    {
        GLWidget surface(appData, &window);
        EffectsLibrary library(directory.path());
        EffectsChain chain(appData, library, surface,
                           QCoreApplication::applicationDirPath() + "/../../application/ombravision");
        QSignalSpy const examined(&chain, &EffectsChain::examined);
        QSignalSpy const initialized(&surface, &GLWidget::initialized);
        surface.resize(320, 180);
        window.resize(320, 180);
        window.show();
        ASSERT_TRUE(processEventsUntil([&initialized] { return !initialized.isEmpty(); }));
        library.load();
        ASSERT_TRUE(processEventsUntil([&library] { return library.isLoaded(); }));
        appData.settings.setEnableVideoPostProcessing(true);

        library.add("Mine", "void main()\n{\n    gl_FragColor = vec4(0.5);\n}\n", "Sharpen");
        library.setOn("Scan Lines", true);
        library.setOn("Mine", true);
        ASSERT_TRUE(processEventsUntil([&appData] { return appData.postProcessingShaders().size() == 2; }));
        EXPECT_EQ(appData.postProcessingShaders().constFirst()->name(), "Mine") << "in the order of the library";
        EXPECT_FALSE(library.find("Mine")->passed.isEmpty());
        unsigned int const good = appData.postProcessingShaders().constFirst()->handle();

        library.setSource("Mine", "void main()\n{\n    gl_FragColor = nonsense;\n}\n");
        ASSERT_TRUE(processEventsUntil([&] { return !examined.last().at(1).toString().isEmpty(); }));
        EXPECT_TRUE(examined.last().at(2).toString().contains("nonsense"));
        EXPECT_TRUE(library.find("Mine")->isOn) << "the viewer is typing";
        ASSERT_EQ(appData.postProcessingShaders().size(), 2);
        EXPECT_EQ(appData.postProcessingShaders().constFirst()->handle(), good);

        library.setSource("Mine",
                          "uniform sampler2D tex0;\nuniform float time;\nvoid main()\n{\n    vec4 c = vec4(0.0);\n"
                          "    for (int i = 0; i < 1000000000; ++i) {\n"
                          "        c += texture2D(tex0, fract(c.xy + vec2(time, float(i))));\n"
                          "        if (c.x > 1.0e9)\n            break;\n    }\n    gl_FragColor = c;\n}\n");
        ASSERT_TRUE(processEventsUntil([&library] { return !library.find("Mine")->fault.isEmpty(); }));
        EXPECT_FALSE(library.find("Mine")->isOn);
        ASSERT_TRUE(processEventsUntil([&appData] { return appData.postProcessingShaders().size() == 1; }));

        library.setOn("Mine", true); // Whoever wants it again has it tried again; the others do not wait for it.
        library.setOn("Film Grain", true);
        ASSERT_TRUE(processEventsUntil([&appData] { return appData.postProcessingShaders().size() == 2; }));
        EXPECT_TRUE(library.find("Mine")->fault.isEmpty());
        ASSERT_TRUE(processEventsUntil([&library] { return !library.find("Mine")->fault.isEmpty(); }));
        EXPECT_EQ(chain.finding("Mine").words, library.find("Mine")->fault);
    }
    appData.uninitialize();
}
