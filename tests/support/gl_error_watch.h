// support/gl_error_watch.h: no test may leave a GL error behind.
//
// Linking the file beside this header lets every test fail in which GL noted an error, be it still in the
// current context or already taken by a surface.
#pragma once

/// For the one test that makes errors on purpose.
void expectGLErrorsInThisTest();
