#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getFlowchartShapes()
{
    return R"(
flowChartProcess P M l t L r t r b l b Z;
flowChartAlternateProcess x=ssd6; i=x*29289/100000;
    T i i r-i b-i;
    P M l x A x x cd2 cd4 L r-x t A x x 3cd4 cd4 L r b-x A x x 0 cd4 L x b A x x cd4 cd4 Z;
flowChartDecision T wd4 hd4 w*3/4 h*3/4;
    P M l vc L hc t r vc hc b Z;
flowChartInputOutput T wd5 t w*4/5 b;
    P M l b L wd5 t r t w*4/5 b Z;
flowChartPredefinedProcess x=r-wd8;
    T wd8 t x b;
    P bare M l t L r t r b l b Z;
    P none M wd8 t L wd8 b M x t L x b;
    P none M l t L r t r b l b Z;
flowChartInternalStorage T wd8 hd8 r b;
    P bare M l t L r t r b l b Z;
    P none M wd8 t L wd8 b M l hd8 L r hd8;
    P none M l t L r t r b l b Z;
flowChartDocument T l t r h*17322/21600;
    P 21600x21600 M 0 0 L 21600 0 21600 17322 C 10800 17322 10800 23922 0 20172 Z;
flowChartMultidocument T l h*3675/21600 w*18595/21600 h*18022/21600;
    P bare 21600x21600 M 0 20782 C 9298 23542 9298 18022 18595 18022 L 18595 3675 0 3675 Z
        M 1532 3675 L 1532 1815 20000 1815 20000 16252 C 19298 16252 18595 16352 18595 16352 L 18595 3675 Z
        M 2972 1815 L 2972 0 21600 0 21600 14392 C 20800 14392 20000 14467 20000 14467 L 20000 1815 Z;
    P none 21600x21600 M 0 3675 L 18595 3675 18595 18022 C 9298 18022 9298 23542 0 20782 Z
        M 1532 3675 L 1532 1815 20000 1815 20000 16252 C 19298 16252 18595 16352 18595 16352
        M 2972 1815 L 2972 0 21600 0 21600 14392 C 20800 14392 20000 14467 20000 14467;
flowChartTerminator T w*1018/21600 h*3163/21600 w*20582/21600 h*18437/21600;
    P 21600x21600 M 3475 0 L 18125 0 A 3475 10800 3cd4 cd2 L 3475 21600 A 3475 10800 cd4 cd2 Z;
flowChartPreparation T wd5 t w*4/5 b;
    P M l vc L wd5 t w*4/5 t r vc w*4/5 b wd5 b Z;
flowChartManualInput T l hd5 r b;
    P M l hd5 L r t r b l b Z;
flowChartManualOperation T wd5 t w*4/5 b;
    P M l t L r t w*4/5 b wd5 b Z;
flowChartConnector @inEllipse; @ellipse;
flowChartOffpageConnector T l t r h*4/5;
    P M l t L r t r h*4/5 hc b l h*4/5 Z;
flowChartPunchedCard T l hd5 r b;
    P M l hd5 L wd5 t r t r b l b Z;
flowChartPunchedTape x=wd4; y=hd10;
    T l hd5 r h*4/5;
    P M l y A x y cd2 -cd2 x y cd2 cd2 L r b-y A x y 0 -cd2 x y 0 cd2 Z;
flowChartSummingJunction @inEllipse; @bareEllipse;
    P none M hc-ix vc-iy L hc+ix vc+iy M hc+ix vc-iy L hc-ix vc+iy;
    @ellipseLine;
flowChartOr @inEllipse; @bareEllipse;
    P none M hc t L hc b M l vc L r vc;
    @ellipseLine;
flowChartCollate T wd4 hd4 w*3/4 h*3/4;
    P M l t L r t hc vc r b l b hc vc Z;
flowChartSort T wd4 hd4 w*3/4 h*3/4;
    P bare M l vc L hc t r vc hc b Z;
    P none M l vc L r vc;
    P none M l vc L hc t r vc hc b Z;
flowChartExtract T wd4 vc w*3/4 b;
    P M l b L hc t r b Z;
flowChartMerge T wd4 t w*3/4 vc;
    P M l t L r t hc b Z;
flowChartOfflineStorage T wd4 t w*3/4 vc;
    P bare M l t L r t hc b Z;
    P none M w*2/5 h*4/5 L w*3/5 h*4/5;
    P none M l t L r t hc b Z;
flowChartOnlineStorage T wd6 t w*5/6 b;
    P M wd6 t L r t A wd6 hd2 3cd4 -cd2 L wd6 b A wd6 hd2 cd4 cd2 Z;
flowChartDelay ix=cos(wd2,2700000); iy=sin(hd2,2700000);
    T l vc-iy hc+ix vc+iy;
    P M l t L hc t A wd2 hd2 3cd4 cd2 L l b Z;
flowChartMagneticTape @inEllipse; y=vc+iy;
    P M hc b A wd2 hd2 cd4 cd4 wd2 hd2 cd2 cd4 wd2 hd2 3cd4 cd4 wd2 hd2 0 at2(w,h) L r y r b Z;
flowChartMagneticDisk T l hd3 r h*5/6;
    P bare M l hd6 A wd2 hd6 cd2 cd2 L r h*5/6 A wd2 hd6 0 cd2 Z;
    P none M r hd6 A wd2 hd6 0 cd2;
    P none M l hd6 A wd2 hd6 cd2 cd2 L r h*5/6 A wd2 hd6 0 cd2 Z;
flowChartMagneticDrum T wd6 t w*2/3 b;
    P bare M wd6 t L w*5/6 t A wd6 hd2 3cd4 cd2 L wd6 b A wd6 hd2 cd4 cd2 Z;
    P none M w*5/6 b A wd6 hd2 cd4 cd2;
    P none M wd6 t L w*5/6 t A wd6 hd2 3cd4 cd2 L wd6 b A wd6 hd2 cd4 cd2 Z;
flowChartDisplay T wd6 t w*5/6 b;
    P M l vc L wd6 t w*5/6 t A wd6 hd2 3cd4 cd2 L wd6 b Z;
)";
}

} // namespace QV::Filters
