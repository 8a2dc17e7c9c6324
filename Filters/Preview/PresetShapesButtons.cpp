#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getButtonShapes()
{
    return R"(
@button d=ss*3/8; y1=vc-d; y2=vc+d; x1=hc-d; x2=hc+d; g=ss*3/4;
@buttonLine P none M l t L r t r b l b Z;
actionButtonBlank P M l t L r t r b l b Z;
actionButtonForwardNext @button;
    P bare M l t L r t r b l b Z M x2 vc L x1 y1 x1 y2 Z;
    P dark bare M x2 vc L x1 y1 x1 y2 Z;
    P none M x2 vc L x1 y2 x1 y1 Z;
    @buttonLine;
actionButtonBackPrevious @button;
    P bare M l t L r t r b l b Z M x1 vc L x2 y1 x2 y2 Z;
    P dark bare M x1 vc L x2 y1 x2 y2 Z;
    P none M x1 vc L x2 y1 x2 y2 Z;
    @buttonLine;
actionButtonEnd @button; x3=x1+g*3/4; x4=x1+g*7/8;
    P bare M l t L r t r b l b Z M x3 vc L x1 y1 x1 y2 Z M x4 y1 L x2 y1 x2 y2 x4 y2 Z;
    P dark bare M x3 vc L x1 y1 x1 y2 Z M x4 y1 L x2 y1 x2 y2 x4 y2 Z;
    P none M x3 vc L x1 y2 x1 y1 Z M x4 y1 L x2 y1 x2 y2 x4 y2 Z;
    @buttonLine;
actionButtonBeginning @button; x3=x1+g/8; x4=x1+g/4;
    P bare M l t L r t r b l b Z M x4 vc L x2 y1 x2 y2 Z M x3 y1 L x1 y1 x1 y2 x3 y2 Z;
    P dark bare M x4 vc L x2 y1 x2 y2 Z M x3 y1 L x1 y1 x1 y2 x3 y2 Z;
    P none M x4 vc L x2 y1 x2 y2 Z M x3 y1 L x1 y1 x1 y2 x3 y2 Z;
    @buttonLine;
actionButtonHome @button; c1=y1+g/16; c2=y1+g*3/16; c3=y1+g*5/16; y3=y1+g*3/4;
    x3=x1+g/8; x4=x1+g*7/16; x5=x1+g*9/16; x6=x1+g*11/16; x7=x1+g*13/16; x8=x1+g*7/8;
    P bare M l t L r t r b l b Z
        M hc y1 L x1 vc x3 vc x3 y2 x8 y2 x8 vc x2 vc x7 c3 x7 c1 x6 c1 x6 c2 Z;
    P darkless bare M x7 c3 L x7 c1 x6 c1 x6 c2 Z M x3 vc L x3 y2 x4 y2 x4 y3 x5 y3 x5 y2 x8 y2 x8 vc Z;
    P dark bare M hc y1 L x1 vc x2 vc Z M x4 y3 L x5 y3 x5 y2 x4 y2 Z;
    P none M hc y1 L x6 c2 x6 c1 x7 c1 x7 c3 x2 vc x8 vc x8 y2 x3 y2 x3 vc x1 vc Z M x6 c2 L x7 c3
        M x8 vc L x3 vc M x4 y2 L x4 y3 x5 y3 x5 y2;
    @buttonLine;
actionButtonReturn @button; y3=y1+g*3/4; y4=y1+g*5/8; y5=y1+g/4; x3=x1+g*7/8; x4=x1+g*3/4; x5=x1+g*5/8;
    x6=x1+g*3/8; x7=x1+g/4; r1=g/8; r2=g*3/8;
    P bare M l t L r t r b l b Z M x2 y5 L x4 y1 hc y5 x5 y5 x5 y4 A r1 r1 0 cd4 L x6 y3 A r1 r1 cd4 cd4
        L x7 y5 x1 y5 x1 y4 A r2 r2 cd2 -cd4 L hc y2 A r2 r2 cd4 -cd4 L x3 y5 Z;
    P dark bare M x2 y5 L x4 y1 hc y5 x5 y5 x5 y4 A r1 r1 0 cd4 L x6 y3 A r1 r1 cd4 cd4
        L x7 y5 x1 y5 x1 y4 A r2 r2 cd2 -cd4 L hc y2 A r2 r2 cd4 -cd4 L x3 y5 Z;
    P none M x2 y5 L x4 y1 hc y5 x5 y5 x5 y4 A r1 r1 0 cd4 L x6 y3 A r1 r1 cd4 cd4
        L x7 y5 x1 y5 x1 y4 A r2 r2 cd2 -cd4 L hc y2 A r2 r2 cd4 -cd4 L x3 y5 Z;
    @buttonLine;
actionButtonDocument @button; x3=hc-ss*9/32; x4=hc+ss*9/32; fold=ss*3/16; x5=x4-fold; y3=y1+fold;
    P bare M l t L r t r b l b Z M x3 y1 L x5 y1 x4 y3 x4 y2 x3 y2 Z;
    P darkless bare M x3 y1 L x5 y1 x5 y3 x4 y3 x4 y2 x3 y2 Z;
    P dark bare M x5 y1 L x5 y3 x4 y3 Z;
    P none M x3 y1 L x5 y1 x4 y3 x4 y2 x3 y2 Z M x4 y3 L x5 y3 x5 y1;
    @buttonLine;
actionButtonSound @button; y3=y1+g/8; y4=y1+g*5/16; y5=y1+g*11/16; y6=y1+g*7/8;
    x3=x1+g*5/16; x4=x1+g*5/8; x5=x1+g*3/4;
    P bare M l t L r t r b l b Z M x1 y4 L x3 y4 x4 y1 x4 y2 x3 y5 x1 y5 Z;
    P dark bare M x1 y4 L x3 y4 x4 y1 x4 y2 x3 y5 x1 y5 Z;
    P none M x1 y4 L x3 y4 x4 y1 x4 y2 x3 y5 x1 y5 Z M x5 y4 L x2 y3 M x5 vc L x2 vc M x5 y5 L x2 y6;
    @buttonLine;
actionButtonInformation @button; dot=g*3/32; y3=y1+g/32; y4=y1+g*5/16; y5=y1+g*3/8; y6=y1+g*13/16;
        y7=y1+g*7/8;
    x3=x1+g*5/16; x4=x1+g*13/32; x5=x1+g*19/32; x6=x1+g*11/16;
    P bare M l t L r t r b l b Z M hc y1 A d d 3cd4 21600000 Z;
    P dark bare M hc y1 A d d 3cd4 21600000 Z M hc y3 A dot dot 3cd4 21600000 Z
        M x3 y4 L x3 y5 x4 y5 x4 y6 x3 y6 x3 y7 x6 y7 x6 y6 x5 y6 x5 y4 Z;
    P light bare M hc y3 A dot dot 3cd4 21600000 Z
        M x3 y4 L x3 y5 x4 y5 x4 y6 x3 y6 x3 y7 x6 y7 x6 y6 x5 y6 x5 y4 Z;
    P none M hc y1 A d d 3cd4 21600000 Z M hc y3 A dot dot 3cd4 21600000 Z
        M x3 y4 L x5 y4 x5 y6 x6 y6 x6 y7 x3 y7 x3 y6 x4 y6 x4 y5 x3 y5 Z;
    @buttonLine;
actionButtonHelp @button; c=g/7; e=g*3/14; f=g*2/7; k=g/14; m=g*3/28; y3=y1+f; y4=y1+g*17/28; y5=y1+g*21/28;
    y6=y1+g*11/14; x3=x1+e; x4=x1+g*3/7; x5=x1+g*4/7;
    P bare M l t L r t r b l b Z M x3 y3 A f f cd2 cd2 c e 0 cd4 k m 3cd4 -cd4 L x5 y5 x4 y5 x4 y4
        A c e cd2 cd4 k m cd4 -cd4 c c 0 -cd2 Z M hc y6 A m m 3cd4 21600000 Z;
    P dark bare M x3 y3 A f f cd2 cd2 c e 0 cd4 k m 3cd4 -cd4 L x5 y5 x4 y5 x4 y4
        A c e cd2 cd4 k m cd4 -cd4 c c 0 -cd2 Z M hc y6 A m m 3cd4 21600000 Z;
    P none M x3 y3 A f f cd2 cd2 c e 0 cd4 k m 3cd4 -cd4 L x5 y5 x4 y5 x4 y4
        A c e cd2 cd4 k m cd4 -cd4 c c 0 -cd2 Z M hc y6 A m m 3cd4 21600000 Z;
    @buttonLine;
@camera u1=x1+g*1455/21600; u2=x1+g*1905/21600; u3=x1+g*2325/21600; u4=x1+g*16155/21600; u5=x1+g*17010/21600;
    u6=x1+g*19335/21600; u7=x1+g*19725/21600; u8=x1+g*20595/21600; v1=y1+g*5280/21600; v2=y1+g*5730/21600;
    v3=y1+g*6630/21600; v4=y1+g*7492/21600; v5=y1+g*9067/21600; v6=y1+g*9555/21600; v7=y1+g*13342/21600;
    v8=y1+g*14580/21600; v9=y1+g*15592/21600;
actionButtonMovie @button; @camera;
    P bare M l t L r t r b l b Z M x1 v1 L x1 v6 u1 v6 u2 v5 u3 v5 u3 v9 u5 v9 u5 v7 u6 v7 u8 v8 x2 v8 x2 v3
        u8 v3 u7 v4 u5 v4 u5 v3 u4 v2 u2 v2 u1 v1 Z;
    P dark bare M x1 v1 L x1 v6 u1 v6 u2 v5 u3 v5 u3 v9 u5 v9 u5 v7 u6 v7 u8 v8 x2 v8 x2 v3
        u8 v3 u7 v4 u5 v4 u5 v3 u4 v2 u2 v2 u1 v1 Z;
    P none M x1 v1 L x1 v6 u1 v6 u2 v5 u3 v5 u3 v9 u5 v9 u5 v7 u6 v7 u8 v8 x2 v8 x2 v3
        u8 v3 u7 v4 u5 v4 u5 v3 u4 v2 u2 v2 u1 v1 Z;
    @buttonLine;
)";
}

} // namespace QV::Filters
