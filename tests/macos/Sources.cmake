# What tests AppKit itself as well as GNUstep: it asks nothing of the supplement.
set(macos_tests
    CommandLineTest.mm
    MacDefaultsTest.mm
    MacDispatcherTest.mm
    MacJsonCodecTest.mm
    MacNotificationsTest.mm
    MacSystemTest.mm
    MacTabbedWindowTest.mm
    MacTextFieldTest.mm
    MacUserInterfaceTest.mm
    MacWindowTest.mm
    ObjectPointerTest.mm)
# What every test program here consists of besides its tests.
set(macos_test_program MainLoop.mm TestMain.mm)
