#include "app/start_up/start_up.h"

int main(int argc, char **argv) {
    quillon::app::prepareProcess();
    return quillon::app::Main(argc, argv);
}
