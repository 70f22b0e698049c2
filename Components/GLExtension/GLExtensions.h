#pragma once

class QOpenGLContext;

/// Initialises every extension wrapper with a context, which is current. Called once per context by whoever made it.
void initGLExtensions(QOpenGLContext const* context);
