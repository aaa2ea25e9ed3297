// Library mapped by the Vorn utilities tests.
extern "C" __attribute__((visibility("default"))) int VornTestPluginAnswer() {
    return 42;
}
