#include "Console.h"
#include "MainWindow.h"
#include "Program.h"
#include "WalkThrough.h"

int main(int argc, char** argv)
{
    return runProgram(argc, argv, Program::WalkThrough, [](const Options& options) {
        MainWindow window;
        window.setSkin(options.skin);
        window.show();
        return WalkThrough(window, options.folder).run() ? Success : Failure;
    });
}
