// A stand-in for libftdi1 with the calls the platform binds, forwarding to an installed device.

#include "FakeLibFtdi1.h"

namespace {

IFakeFtdi* gDevice = nullptr;
int gContext = 0;
unsigned gReadChunk = 0;

} // namespace

#define FAKE_EXPORT extern "C" __attribute__((visibility("default")))

FAKE_EXPORT void fake_ftdi_install(IFakeFtdi* device_I) {
    gDevice = device_I;
}

FAKE_EXPORT void* ftdi_new() {
    return &gContext;
}

FAKE_EXPORT void ftdi_free(void*) {}

FAKE_EXPORT int ftdi_usb_find_all(void*, void** list_O, int vendor_I, int product_I) {
    *list_O = nullptr;
    return gDevice != nullptr && vendor_I == 0x0403 && product_I == 0x6014 ? gDevice->Count() : 0;
}

FAKE_EXPORT void ftdi_list_free(void**) {}

FAKE_EXPORT int ftdi_usb_open_desc_index(void*, int vendor_I, int product_I, const char*,
                                         const char*, unsigned index_I) {
    if (gDevice == nullptr || vendor_I != 0x0403 || product_I != 0x6014) {
        return -3;
    }
    return gDevice->Open(index_I);
}

FAKE_EXPORT int ftdi_usb_close(void*) {
    return gDevice->Close();
}

FAKE_EXPORT int ftdi_usb_reset(void*) {
    return gDevice->Reset();
}

FAKE_EXPORT int ftdi_tcioflush(void*) {
    return gDevice->Purge();
}

FAKE_EXPORT int ftdi_read_data(void*, unsigned char* buffer_O, int size_I) {
    return gDevice->Read(buffer_O, size_I);
}

FAKE_EXPORT int ftdi_write_data(void*, const unsigned char* data_I, int size_I) {
    return gDevice->Write(data_I, size_I);
}

FAKE_EXPORT int ftdi_set_latency_timer(void*, unsigned char milliseconds_I) {
    return gDevice->SetLatency(milliseconds_I);
}

FAKE_EXPORT int ftdi_set_bitmode(void*, unsigned char mask_I, unsigned char mode_I) {
    return gDevice->SetBitMode(mask_I, mode_I);
}

FAKE_EXPORT int ftdi_set_event_char(void*, unsigned char event_I, unsigned char enable_I) {
    return gDevice->SetChars(event_I, enable_I);
}

FAKE_EXPORT int ftdi_set_error_char(void*, unsigned char, unsigned char) {
    return 0;
}

FAKE_EXPORT int ftdi_read_data_set_chunksize(void*, unsigned size_I) {
    gReadChunk = size_I;
    return 0;
}

FAKE_EXPORT int ftdi_write_data_set_chunksize(void*, unsigned size_I) {
    return gDevice->SetChunks(gReadChunk, size_I);
}

FAKE_EXPORT const char* ftdi_get_error_string(void*) {
    return "fake";
}
