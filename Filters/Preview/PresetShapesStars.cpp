#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getStarShapes()
{
    return R"(
@starInside a=pin(0,adj,50000); rx=wd2*a/50000; ry=hd2*a/50000;
    ix=cos(rx,2700000); iy=sin(ry,2700000); T hc-ix vc-iy hc+ix vc+iy;
star4 adj:12500; @starInside; P N 4 hc vc wd2 hd2 rx ry;
star5 adj:19098; hf:105146; vf:110557; a=pin(0,adj,50000); rx1=wd2*hf/100000; ry1=hd2*vf/100000;
    c=vc*vf/100000; rx=rx1*a/50000; ry=ry1*a/50000;
    T hc-cos(rx,20520000) c-sin(ry,3240000) hc+cos(rx,20520000) c+ry;
    P N 5 hc c rx1 ry1 rx ry;
star6 adj:28868; hf:115470; a=pin(0,adj,50000); rx1=wd2*hf/100000; rx=rx1*a/50000; ry=hd2*a/50000;
    i=sin(ry,3600000);
    T hc-rx vc-i hc+rx vc+i;
    P N 6 hc vc rx1 hd2 rx ry;
star7 adj:34601; hf:102572; vf:105210; a=pin(0,adj,50000); rx1=wd2*hf/100000; ry1=hd2*vf/100000;
    c=vc*vf/100000; rx=rx1*a/50000; ry=ry1*a/50000; i=rx*78183/100000;
    T hc-i c-ry*90097/100000 hc+i c+ry*62349/100000;
    P N 7 hc c rx1 ry1 rx ry;
star8 adj:37500; @starInside; P N 8 hc vc wd2 hd2 rx ry;
star10 adj:42533; hf:105146; a=pin(0,adj,50000); rx1=wd2*hf/100000; rx=rx1*a/50000; ry=hd2*a/50000;
    ix=cos(rx,2160000); iy=sin(ry,2160000);
    T hc-ix vc-iy hc+ix vc+iy;
    P N 10 hc vc rx1 hd2 rx ry;
star12 adj:37500; @starInside; P N 12 hc vc wd2 hd2 rx ry;
star16 adj:37500; @starInside; P N 16 hc vc wd2 hd2 rx ry;
star24 adj:37500; @starInside; P N 24 hc vc wd2 hd2 rx ry;
star32 adj:37500; @starInside; P N 32 hc vc wd2 hd2 rx ry;
)";
}

const char* getBannerShapes()
{
    return R"(
@ribbonSides a1=pin(0,adj1,33333); a2=pin(25000,adj2,75000); x10=r-wd8; dx=w*a2/200000; x2=hc-dx; x9=hc+dx;
    x3=x2+wd32; x8=x9-wd32; x5=x2+wd8; x6=x9-wd8; x4=x5-wd32; x7=x6+wd32; ry=h*a1/400000;
ribbon2 adj1:16667; adj2:50000; @ribbonSides; y1=b-h*a1/200000; y2=b-h*a1/100000; y4=h*a1/100000; y3=(y4+b)/2;
    y6=b-ry; y7=y1-ry;
    T x2 t x9 y2;
    P bare M l b L x4 b A wd32 ry cd4 -cd2 L x3 y1 A wd32 ry cd4 cd2 L x8 y2 A wd32 ry 3cd4 cd2 L x7 y1
        A wd32 ry 3cd4 -cd2 L r b x10 y3 r y4 x9 y4 x9 ry A wd32 ry 0 -cd4 L x3 t A wd32 ry 3cd4 -cd4
        L x2 y4 l y4 wd8 y3 Z;
    P darkless bare M x5 y6 A wd32 ry 0 -cd4 L x3 y1 A wd32 ry cd4 cd2 L x5 y2 Z
        M x6 y6 A wd32 ry cd2 cd4 L x8 y1 A wd32 ry cd4 -cd2 L x6 y2 Z;
    P none M l b L wd8 y3 l y4 x2 y4 x2 ry A wd32 ry cd2 cd4 L x8 t A wd32 ry 3cd4 cd4 L x9 y4 r y4 x10 y3 r b
        x7 b A wd32 ry cd4 cd2 L x8 y1 A wd32 ry cd4 -cd2 L x3 y2 A wd32 ry 3cd4 -cd2 L x4 y1
        A wd32 ry 3cd4 cd2 Z M x5 y2 L x5 y6 M x6 y6 L x6 y2 M x2 y7 L x2 y4 M x9 y4 L x9 y7;
ribbon adj1:16667; adj2:50000; @ribbonSides; y1=h*a1/200000; y2=h*a1/100000; y4=b-y2; y3=y4/2; y5=b-ry;
        y6=y2-ry;
    T x2 y2 x9 b;
    P bare M l t L x4 t A wd32 ry 3cd4 cd2 L x3 y1 A wd32 ry 3cd4 -cd2 L x8 y2 A wd32 ry cd4 -cd2 L x7 y1
        A wd32 ry cd4 cd2 L r t x10 y3 r y4 x9 y4 x9 y5 A wd32 ry 0 cd4 L x3 b A wd32 ry cd4 cd4
        L x2 y4 l y4 wd8 y3 Z;
    P darkless bare M x5 ry A wd32 ry 0 cd4 L x3 y1 A wd32 ry 3cd4 -cd2 L x5 y2 Z
        M x6 ry A wd32 ry cd2 -cd4 L x8 y1 A wd32 ry 3cd4 cd2 L x6 y2 Z;
    P none M l t L x4 t A wd32 ry 3cd4 cd2 L x3 y1 A wd32 ry 3cd4 -cd2 L x8 y2 A wd32 ry cd4 -cd2 L x7 y1
        A wd32 ry cd4 cd2 L r t x10 y3 r y4 x9 y4 x9 y5 A wd32 ry 0 cd4 L x3 b A wd32 ry cd4 cd4
        L x2 y4 l y4 wd8 y3 Z M x5 ry L x5 y2 M x6 y2 L x6 ry M x2 y4 L x2 y6 M x9 y6 L x9 y4;
@ellipseRibbon a1=pin(0,adj1,100000); a2=pin(25000,adj2,75000); a3=pin(max(0,a1-(100000-a1)/2),adj3,a1);
    x2=hc-w*a2/200000; x3=x2+wd8; x4=r-x3; x5=r-x2; x6=r-wd8; dy1=h*a3/100000; f1=4*dy1/w;
    q1=h*a1/100000; y1=f1*(x3-x3*x3/w); cx1=x3/2; cy1=f1*cx1; dy3=q1-dy1; q5=f1*(x2-x2*x2/w); y3=q5+dy3;
    cy3=dy1+dy3-y3+dy1+dy3; rh=b-q1; y2=(dy1*14/16+rh)/2; y5=q5+rh; y6=y3+rh; cx4=x2/2; cy4=f1*cx4+rh;
    cy6=cy3+rh; y7=y1+dy3; cy7=q1+q1-y7;
ellipseRibbon adj1:25000; adj2:50000; adj3:12500; @ellipseRibbon;
    T x2 q1 x5 y6;
    P bare M l t Q cx1 cy1 x3 y1 L x2 y3 Q hc cy3 x5 y3 L x4 y1 Q r-cx1 cy1 r t L x6 y2 r rh Q r-cx4 cy4 x5 y5
        L x5 y6 Q hc cy6 x2 y6 L x2 y5 Q cx4 cy4 l rh L wd8 y2 Z;
    P darkless bare M x3 y7 L x3 y1 x2 y3 Q hc cy3 x5 y3 L x4 y1 x4 y7 Q hc cy7 x3 y7 Z;
    P none M l t Q cx1 cy1 x3 y1 L x2 y3 Q hc cy3 x5 y3 L x4 y1 Q r-cx1 cy1 r t L x6 y2 r rh Q r-cx4 cy4 x5 y5
        L x5 y6 Q hc cy6 x2 y6 L x2 y5 Q cx4 cy4 l rh L wd8 y2 Z
        M x2 y5 L x2 y3 M x5 y3 L x5 y5 M x3 y1 L x3 y7 M x4 y7 L x4 y1;
ellipseRibbon2 adj1:25000; adj2:50000; adj3:12500; @ellipseRibbon;
    T x2 b-y6 x5 b-q1;
    P bare M l b Q cx1 b-cy1 x3 b-y1 L x2 b-y3 Q hc b-cy3 x5 b-y3 L x4 b-y1 Q r-cx1 b-cy1 r b L x6 b-y2 r q1
        Q r-cx4 b-cy4 x5 b-y5 L x5 b-y6 Q hc b-cy6 x2 b-y6 L x2 b-y5 Q cx4 b-cy4 l q1 L wd8 b-y2 Z;
    P darkless bare M x3 b-y7 L x3 b-y1 x2 b-y3 Q hc b-cy3 x5 b-y3 L x4 b-y1 x4 b-y7 Q hc b-cy7 x3 b-y7 Z;
    P none M l b Q cx1 b-cy1 x3 b-y1 L x2 b-y3 Q hc b-cy3 x5 b-y3 L x4 b-y1 Q r-cx1 b-cy1 r b L x6 b-y2 r q1
        Q r-cx4 b-cy4 x5 b-y5 L x5 b-y6 Q hc b-cy6 x2 b-y6 L x2 b-y5 Q cx4 b-cy4 l q1 L wd8 b-y2 Z
        M x2 b-y5 L x2 b-y3 M x5 b-y3 L x5 b-y5 M x3 b-y1 L x3 b-y7 M x4 b-y7 L x4 b-y1;
leftRightRibbon adj1:50000; adj2:50000; adj3:16667; a3=pin(0,adj3,33333); a1=pin(0,adj1,100000-a3);
    a2=pin(0,adj2,100000*(wd2-wd32)/ss); x1=ss*a2/100000; x4=r-x1; dy1=h*a1/200000; dy2=h*a3/200000;
    ly1=vc-dy2-dy1; ry4=vc+dy1+dy2; ly2=ly1+dy1; ry3=b-ly2; ly4=ly2*2; ry1=b-ly4; ly3=ly4-ly1; ry2=b-ly3;
    ry=h*a3/400000; x2=hc-wd32; x3=hc+wd32; y1=ly1+ry; y2=ry2-ry;
    T x1 ly1 x4 ry4;
    P bare M l ly2 L x1 t x1 ly1 hc ly1 A wd32 ry 3cd4 cd2 wd32 ry 3cd4 -cd2 L x4 ry2 x4 ry1 r ry3 x4 b x4 ry4
        hc ry4 A wd32 ry cd4 cd4 L x2 ly3 x1 ly3 x1 ly4 Z;
    P darkless bare M x3 y1 A wd32 ry 0 cd4 wd32 ry 3cd4 -cd2 L x3 ry2 Z;
    P none M l ly2 L x1 t x1 ly1 hc ly1 A wd32 ry 3cd4 cd2 wd32 ry 3cd4 -cd2 L x4 ry2 x4 ry1 r ry3 x4 b x4 ry4
        hc ry4 A wd32 ry cd4 cd4 L x2 ly3 x1 ly3 x1 ly4 Z M x3 y1 L x3 ry2 M x2 y2 L x2 ly3;
@waveSides of=w*a2/50000; left=-if(of,0,of); right=if(of,of,0); x5=r-right; x10=r-left;
    ix=max(left,right); jx=min(x5,x10);
wave adj1:12500; adj2:0; a1=pin(0,adj1,20000); a2=pin(-10000,adj2,10000); @waveSides;
    y1=h*a1/100000; d=y1*10/3; y4=b-y1; dx=(x5-left)/3;
    T ix y1*2 jx b-y1*2;
    P M left y1 C left+dx y1-d x5-dx y1+d x5 y1 L x10 y4
        C x10-dx y4+d right+dx y4-d right y4 Z;
doubleWave adj1:6250; adj2:0; a1=pin(0,adj1,12500); a2=pin(-10000,adj2,10000); @waveSides;
    y1=h*a1/100000; d=y1*10/3; y4=b-y1; dx=(x5-left)/6; x3=left+dx*3; x12=right+dx*3;
    T ix y1*2 jx b-y1*2;
    P M left y1 C left+dx y1-d left+dx*2 y1+d x3 y1 x3+dx y1-d x3+dx*2 y1+d x5 y1 L x10 y4
        C x12+dx*2 y4+d x12+dx y4-d x12 y4 right+dx*2 y4+d right+dx y4-d right y4 Z;
verticalScroll adj:12500; a=pin(0,adj,25000); c=ss*a/100000; c2=c/2; c4=c/4; x3=c+c2; x4=c+c; x6=r-c; x7=r-c2;
    y3=b-c; y4=b-c2;
    T c c x6 y4;
    P bare M c2 b A c2 c2 cd4 -cd4 L c c2 A c2 c2 cd2 cd4 L x7 t A c2 c2 3cd4 cd2 L x6 c x6 y4 A c2 c2 0 cd4 Z
        M x4 c2 A c2 c2 0 cd4 c4 c4 cd4 cd2 Z;
    P darkless bare M x4 c2 A c2 c2 0 cd4 c4 c4 cd4 cd2 Z M c y4 A c2 c2 0 3cd4 c4 c4 3cd4 cd2 Z;
    P none M c y3 L c c2 A c2 c2 cd2 cd4 L x7 t A c2 c2 3cd4 cd2 L x6 c x6 y4 A c2 c2 0 cd4 L c2 b
        A c2 c2 cd4 cd2 Z M x3 t A c2 c2 3cd4 cd2 c4 c4 cd4 cd2 L x4 c2 M x6 c L x3 c
        M c2 y3 A c4 c4 3cd4 cd2 L c y4 M c2 b A c2 c2 cd4 -cd4 L c y3;
horizontalScroll adj:12500; a=pin(0,adj,25000); c=ss*a/100000; c2=c/2; c4=c/4; y3=c+c2; y4=c+c; y6=b-c;
        y7=b-c2;
    y5=y6-c2; x3=r-c; x4=r-c2;
    T c c x4 y6;
    P bare M r c2 A c2 c2 0 cd4 L x4 c2 A c4 c4 0 cd2 L x3 c c2 c A c2 c2 3cd4 -cd4 L l y7 A c2 c2 cd2 -cd2
        L c y6 x4 y6 A c2 c2 cd4 -cd4 Z M c2 y4 A c2 c2 cd4 -cd4 c4 c4 0 -cd2 Z;
    P darkless bare M c2 y4 A c2 c2 cd4 -cd4 c4 c4 0 -cd2 Z M x4 c A c2 c2 cd4 -3cd4 c4 c4 cd2 -cd2 Z;
    P none M l y3 A c2 c2 cd2 cd4 L x3 c x3 c2 A c2 c2 cd2 cd2 L r y5 A c2 c2 0 cd4 L c y6 c y7 A c2 c2 0 cd2
        Z
        M x3 c L x4 c A c2 c2 cd4 -cd4 M x4 c L x4 c2 A c4 c4 0 cd2 M c2 y4 L c2 y3 A c4 c4 cd2 cd2 c2 c2 0
        cd2
        M c y3 L c y6;
)";
}

} // namespace QV::Filters
